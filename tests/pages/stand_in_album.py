"""An exported album made by hand from the pages that every album takes along, by what an export writes."""
import pathlib
import shutil
import subprocess

MARKED_SIDE = 5760


class Photo:
    def __init__(self, file, year, event, place, description="", names=(), sound=False, missing=False):
        self.file, self.year, self.event, self.place = file, year, event, place
        self.description, self.names, self.sound, self.missing = description, names, sound, missing


def faces(samples_faces, photo):
    """{name: (x, y)} in pixels of the upright photograph."""
    lines = (line.split() for line in samples_faces.read_text().splitlines() if not line.startswith("#"))
    return {line[1]: (float(line[2]), float(line[3])) for line in lines if line and line[0] == photo}


def cords(place, size):
    scale = MARKED_SIDE / max(size)
    return f"{round(place[0] * scale):04}X{round(place[1] * scale):04}"


def side_page(number, photo, marks):
    page = ('<html><body bgcolor="#FFFFFF" background="../html/watermark2.gif">\r\n'
            '<table width="146" border="0" align="center" cellspacing="0" cellpadding="0" background="../html/paper.jpg">\r\n'
            f'<tr><td height="30" align="center"><font size="5"><b>{photo.year or "----"}</b></font></td></tr>\r\n'
            '<tr><td height="45" valign="top"><font size="4" color="#990000" face="Arial, Helvetica, sans-serif">'
            f'{photo.event} in {photo.place}</font></td></tr>\r\n'
            '<tr><td><table width="146" height="100%" border="0" align="center" cellspacing="0" cellpadding="0">\r\n')
    for name in photo.names:
        page += '<tr><td valign="middle" width="146" height="25">'
        if name in marks:
            page += (f'<a href="../html/leftctrl.htm?cords={marks[name]}" target="leftCtrl">'
                     '<img src="../html/marker.gif" border="0" align="absmiddle"></a>')
        page += f'<font color="#000099" face="Arial, Helvetica, sans-serif"><b>{name}</b></font></tr>\r\n'
    if not photo.names:
        page += "<tr></tr>\r\n"
    if photo.description:
        page += ('<tr><td height="32"></td></tr><tr><td valign="top" width="146" height="25"><i><font size="4" font '
                 'color="#333333" font face="Verdana, Arial, Helvetica, sans-serif">'
                 f'{photo.description}</font></i></td></tr>\r\n')
    page += ('<tr><td valign="bottom"><img src="../html/paperline.gif" border="0" width="146" height="2"></td></tr>'
             '</table></td></tr></table>\r\n')
    if photo.sound:
        sound = f"../audio/{number}.wav"
        page += (f'<bgsound loop="1" SRC="{sound}">\r\n<script language="JavaScript">\r\n'
                 'if (navigator.appName == "Netscape") {\r\n'
                 f'document.write(\'<embed src="{sound}" hidden="TRUE" autostart="TRUE"  loop= "FALSE"></embed>\');}}\r\n'
                 '</script>\r\n')
    return page + "</body></html>\r\n"


def make_tone(file):
    file.parent.mkdir(exist_ok=True)
    subprocess.run(["sox", "-n", "-r", "22050", "-c", "1", "-b", "16", file, "synth", "30", "sine", "440",
                    "vol", "0.2"], check=True)


def replace(file, token, text):
    file.write_bytes(file.read_bytes().replace(token.encode(), text.encode()))


def export(template, samples, samples_faces, folder, title, photos, music=True):
    """Writes the album `title` into folder/name; tells its start page."""
    name = title.replace(" ", "_")
    tree = folder / name
    shutil.copytree(template, tree)
    (tree / "data").mkdir()
    start = tree / f"{name.lower()}.htm"
    (tree / "master.htm").rename(start)
    cells = "<tr>"
    for number, photo in enumerate(photos, 1):
        if number > 1 and (number - 1) % 8 == 0:
            cells += "</tr><tr>"
        cells += ('<td align="center" valign="middle" width="12%" height="90" bgcolor="#666699"><a href="frameset.htm?Page='
                  f'{number}" target="_blank"><img src="data\\t{number}.jpg" border="1"></a></td>')
        if not photo.missing:
            write_photo(tree, samples, samples_faces, number, photo)
    for _ in range(len(photos), 8):
        cells += '<td align="center" valign="middle" width="12%" height="90">&nbsp;</td>'
    replace(start, "^^varThumbs^^", cells + "</tr>")
    replace(start, "^^varTitle^^", title)
    if music:
        make_tone(tree / "audio" / f"{name}.wav")
        replace(start, "^^audio^^", f"{name}.wav")
    replace(tree / "html" / "rightctrl.htm", "^^numPage^^", str(len(photos)))
    (tree / "Autorun.inf").write_text(f"[autorun]\r\nopen=Autorun.exe {name}.htm\r\n")
    return start


def write_photo(tree, samples, samples_faces, number, photo):
    source, data = samples / photo.file, tree / "data"
    resize(source, data / f"{number}.jpg", "620x620")
    resize(source, data / f"t{number}.jpg", "73x73")
    upright = (1600, 1200) if size_of(data / f"{number}.jpg")[0] == 620 else (1200, 1600)
    marks = {name: cords(place, upright) for name, place in faces(samples_faces, photo.file).items()}
    page = side_page(number, photo, marks)
    mark = b"\xef\xbb\xbf" if not page.isascii() else b""
    (data / f"{number}.htm").write_bytes(mark + page.encode())
    if photo.sound:
        make_tone(tree / "audio" / f"{number}.wav")


def resize(source, target, size):
    subprocess.run(["convert", source, "-auto-orient", "-resize", size, "-strip", target], check=True)


def size_of(picture):
    told = subprocess.run(["identify", "-format", "%w %h", picture], check=True, capture_output=True, text=True)
    return tuple(map(int, told.stdout.split()))
