#!/usr/bin/python3
"""Somebody tells the story of a photo, hears it again the next day, gives another a tune, and takes it off.

attach_sounds.py BUILD KEEP: BUILD is a build folder; what the screen showed when something went wrong
is kept in KEEP.
"""
import wave

import album_steps as steps
from journey import expect, run
from sound_service import SoundService

STORY = "This is our garden, in the summer of two thousand and eleven."


def tell_a_story(person, home, sound):
    steps.open_build_album(person)
    dialog = steps.open_add_audio(person, "Add Audio")
    steps.record(person, dialog, 2, lambda: sound.speak(STORY, home.folder))
    steps.attach_recording(person, dialog)
    person.find("label", "Update Audio")
    expect(steps.quit_program(person) == 0, "the program ends in order")


def check_the_recording(home):
    with wave.open(str(home.album / "Audio" / "00001.wav")) as recorded:
        expect((recorded.getframerate(), recorded.getsampwidth(), recorded.getnchannels()) == (11025, 1, 1),
               "the recording has the low quality")
        expect(recorded.getnframes() >= 2 * 11025, "all of it was recorded")
        loudest = max(abs(sample - 128) for sample in recorded.readframes(recorded.getnframes()))
        expect(loudest > 20, f"somebody is heard speaking, not only {loudest}")


def hear_it_and_take_it_off(person, home):
    steps.open_build_album(person)
    dialog = steps.open_add_audio(person, "Update Audio")
    person.until(lambda: steps.sound_seconds(person, dialog) >= 2, "the length of the recording")
    person.click(person.find("push button", "Play", within=dialog))
    person.find("panel", "Position", within=dialog)  # stays when a short sound is over
    person.click(person.find("push button", "Remove Audio", within=dialog))
    steps.say(person, person.box("Remove Audio"), "OK")
    person.until(lambda: not (home.album / "Audio" / "00001.wav").exists(), "the sound taken off")
    expect(list((home.folder / ".local/share/Trash/files").glob("00001*.wav")), "the sound lies in the trash")
    person.press("Escape")
    steps.say(person, person.box("Remove Audio"), "OK")
    person.closed(dialog)
    person.find("label", "Add Audio")
    expect(steps.quit_program(person) == 0, "the program ends in order the second time")


def tell(journey):
    home = journey.home
    with SoundService() as sound:
        journey.desktop.environment.update(sound.environment)
        with journey.evening() as person:
            tell_a_story(person, home, sound)
        check_the_recording(home)
        with journey.evening() as person:
            hear_it_and_take_it_off(person, home)


if __name__ == "__main__":
    run(tell)
