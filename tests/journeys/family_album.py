"""An album as a family has it after some years: photos with years, places and people, written beforehand."""
import sqlite3
import subprocess

PLACES = ("Home", "Lake", "Paris")
PEOPLE = ("Anna", "Clara", "Henry", "Otto")
PICTURES = ("garden.jpg", "lake.jpg", "beach.jpg", "wedding.jpg", "school.jpg", "birthday.jpg")


def _order(one, other):
    return (one.casefold() > other.casefold()) - (one.casefold() < other.casefold())


def fill(home, photos):
    """Gives a new album so many photos in all: number n is of the year 1950 + n, in turn at each of the
    places, in turn of each of the people; the first photo is the one that is there."""
    _make_pictures(home, photos)
    database = sqlite3.connect(home.album / "Data" / "Photo_Album.mdb")
    database.create_collation("HEARTHBOOK_TEXT", _order)
    with database:
        database.executemany("INSERT INTO Places (PlaceName) VALUES (?)", [(place,) for place in PLACES])
        database.executemany("INSERT INTO Appearances (AppearancesNames) VALUES (?)", [(name,) for name in PEOPLE])
        database.executemany(
            "INSERT INTO PhotoAlbum (PictureID, Year, PlaceID, NamesInPhoto) VALUES (?, ?, ?, ?)",
            [(f"HD{n:05}", 1950 + n, 1 + n % len(PLACES), f"{1 + n % len(PEOPLE):03},")
             for n in range(2, photos + 1)])
    database.close()


def _make_pictures(home, photos):
    for n in range(2, photos + 1):
        drawing = home.samples / PICTURES[n % len(PICTURES)]
        subprocess.run(["convert", "-limit", "thread", "1", str(drawing),
                        "-resize", "400x400", "-write", str(home.album / "Photos" / f"{n:05}.jpg"),
                        "-resize", "73x73", str(home.album / "Thumbnails" / f"{n:05}.jpg")],
                       check=True, stdin=subprocess.DEVNULL)
