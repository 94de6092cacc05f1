"""The album that the tests of the pages export."""
from stand_in_album import Photo

TITLE = "Our Family"
PHOTOS = [
    Photo("wedding.jpg", 1989, "Wedding", "Lake", "Clara had laughed all morning.", ["Henry", "Clara"], sound=True),
    Photo("birthday.jpg", 1998, "Birthday", "Home", "", ["Peter", "Maria", "Emil", "Lotte"]),
    Photo("lake.jpg", 1999, "Holidays", "Lake", "", ["Lotte", "Emil"]),
    Photo("beach.jpg", 2000, "Holidays", "Beach", "Grüße vom Strand: " + "und noch ein Eis. " * 40),
    Photo("dog.jpg", 2000, "Sunday", "Garden", missing=True),
    Photo("baby.jpg", None, "Baptism", "Home", "", ["Maria", "Lotte"], sound=True),
    Photo("school.jpg", 1999, "First day", "School", "", ["Emil"]),
    Photo("garden.jpg", 2001, "Sunday", "Garden", "", ["Rosa", "Lotte"]),
    Photo("grandparents.jpg", 2001, "Golden wedding", "Home", "", ["Rosa"]),
]
