#!/usr/bin/python3
"""A family makes a sub-album of all its photographs and puts it in order with the mouse.

arrange_album.py BUILD KEEP: BUILD is a build folder; what the screen showed when something went wrong
is kept in KEEP.
"""
import album_order as order
import album_steps as steps
import photographs
from journey import expect, run

NAMES = sorted([*photographs.REAL_ONES, *photographs.MADE], key=str.lower)
ALBUM = "Summer at the lake"
COUNT = len(NAMES) + 1  # with the photo that every album begins with


def add_photographs(person, home):
    steps.open_build_album(person)
    steps.add_all_photographs(person, home.pictures, len(NAMES))


def photos(person, editor, *numbers):
    return [order.photo(person, editor, number) for number in numbers]


def fill(person, home):
    steps.search_all(person)
    editor = order.open_for_result(person)
    order.create(person, editor, ALBUM)
    order.add(person, editor, COUNT)
    order.leave(person, editor)
    expect(sorted(order.stored(home)) == list(range(1, COUNT + 1)), "everything that was found is in it")


def open_album(person):
    editor = order.open_for_result(person)
    order.choose(person, editor, ALBUM, COUNT)
    return editor


def move_by_hand(person, home):
    before = order.stored(home)
    editor = open_album(person)
    order.pull(person, *photos(person, editor, 6, 3))
    order.leave(person, editor)
    there = before[:2] + [before[5]] + before[2:5] + before[6:]
    expect(order.stored(home) == there, f"the sixth went to the third place: {order.stored(home)}")
    editor = open_album(person)
    order.pull(person, *photos(person, editor, 3, 6))
    order.leave(person, editor)
    expect(order.stored(home) == before, f"and back: {order.stored(home)}")


def move_out_of_view(person, home):
    """Over the bar below, the strip goes on to its last row."""
    before = order.stored(home)
    editor = open_album(person)
    start = order.photo(person, editor, 1)
    order.hold(person, start)
    order.wait_below(person, editor, COUNT)
    order.let_go(person, order.photo(person, editor, COUNT))
    order.leave(person, editor)
    expect(order.stored(home) == before[1:] + before[:1], f"the first went to the end: {order.stored(home)}")


def arrange(person, home):
    editor = open_album(person)
    steps.say(person, order.ask_to_arrange(person, editor, "By scan order"), "OK")
    order.leave(person, editor)
    expect(order.stored(home) == list(range(1, COUNT + 1)), f"in the order of numbers: {order.stored(home)}")


def tell(journey):
    photographs.lay_out(journey.home.pictures, journey.home.samples, NAMES)
    with journey.evening() as person:
        for part in (add_photographs, fill, move_by_hand, move_out_of_view, arrange):
            part(person, journey.home)
        expect(steps.quit_program(person) == 0, "the program ends in order")


if __name__ == "__main__":
    run(tell)
