#!/usr/bin/python3
"""A family gives a photograph a sound, hears it on its page, and watches slides on the full screen, back to the
photograph that was seen last.

watch_slides.py BUILD KEEP: BUILD is a build folder; what the screen showed when something went wrong
is kept in KEEP.
"""
import album_steps as steps
import photographs
from journey import expect, run
from sound_service import SoundService

NAMES = sorted(["Beach.jpg", "Grandparents.jpg", "School.jpg", "Wedding.jpg"], key=str.lower)
COUNT = len(NAMES) + 1
STORY = "This is our garden."


def bring_photographs(person, home):
    steps.start_building(person)
    dialog, files = steps.open_add_from_file(person, home.pictures, len(NAMES))
    steps.select(person, files, 0, len(NAMES) - 1)
    steps.accept(person, steps.insert(person, dialog))
    steps.leave_add_from_file(person)


def give_a_sound(person, home, sound):
    steps.go(person, "|<<", 1)
    dialog = steps.open_add_audio(person, "Add Audio")
    steps.record(person, dialog, 1, lambda: sound.speak(STORY, home.folder))
    steps.attach_recording(person, dialog)
    person.find("label", "Update Audio")
    expect((home.album / "Audio" / "00001.wav").exists(), "the sound is attached")


def hear_it(person, home, sound):
    steps.open_album(person, "Master Album", pages=2)
    expect(len(person.all("push button", "Play the sound")) == 1, "one photograph of the page has a sound")
    with sound.listening(home.folder) as loudest:
        expect(loudest() < 100, "silence before")
        person.click(person.find("push button", "Play the sound"))
        person.until(lambda: loudest() > 1000, "the story is heard")


def look_closely(person):
    """By buttons, mouse and keyboard."""
    person.click(person.find("push button", "Zoom +"))
    person.click(person.find("push button", "Zoom -"))
    person.press("Right")
    person.until(lambda: steps.zoomed(person) == (3, COUNT), "the next photograph")
    person.press("Left")
    person.until(lambda: steps.zoomed(person) == (2, COUNT), "the one before")


def watch_three_slides(person):
    """Answers with the photograph that is seen last."""
    seen = []

    def another():
        now = steps.on_full_screen(person)
        if now and now not in seen[-1:]:
            seen.append(now)
        return len(seen) > 3
    person.until(lambda: steps.on_full_screen(person) == (2, COUNT), "the photograph on the full screen")
    person.press("space")
    person.until(another, "three slides")
    person.press("space")
    person.find("check box", "Slide")  # it says what it would do: the show rests
    return steps.on_full_screen(person)


def watch(person):
    full_screen = steps.zoom(person, 2)
    expect(steps.zoomed(person) == (2, COUNT), "the photograph that was selected")
    look_closely(person)
    person.click(full_screen)
    last, step = watch_three_slides(person)[0], 1
    if last == COUNT:
        step = -1
    person.press("Right" if step > 0 else "Left")
    person.until(lambda: steps.on_full_screen(person) == (last + step, COUNT), "one further by the key")
    person.press("Escape")
    person.until(lambda: steps.on_full_screen(person) is None, "the full screen left")
    expect(steps.zoomed(person) == (last + step, COUNT), "the zoom view shows the photograph that was seen last")
    person.click(person.find("push button", "Done", within=person.find("frame", "Full Size View: Master Album")))
    person.find("label", "Page 1 of 2")


def tell(journey):
    home = journey.home
    photographs.lay_out(home.pictures, home.samples, NAMES)
    with SoundService() as sound:
        journey.desktop.environment.update(sound.environment)
        with journey.evening() as person:
            bring_photographs(person, home)
            give_a_sound(person, home, sound)
            hear_it(person, home, sound)
            watch(person)
            expect(steps.quit_program(person) == 0, "the program ends in order")


if __name__ == "__main__":
    run(tell)
