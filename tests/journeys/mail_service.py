"""A mail server on this machine, and what it was sent."""
import pathlib
import re
import subprocess
import tempfile

SERVER = pathlib.Path(__file__).resolve().parent.parent / "support" / "mail_server.py"
ATTACHMENT = re.compile(rb"^begin 664 (\S+)\r\n.*?^end\r\n", re.DOTALL | re.MULTILINE)


class MailService:
    """with MailService(folder) as mail: a server at mail.host until the end of the block."""

    def __init__(self, folder):
        self.folder = pathlib.Path(folder)

    def __enter__(self):
        self._server = subprocess.Popen(["/usr/bin/python3", "-B", str(SERVER), str(self.folder)],
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.host = f"127.0.0.1:{int(self._server.stdout.readline())}"
        return self

    def __exit__(self, *_):
        self._server.communicate()

    def mail(self, number):
        """The bytes of the n-th mail, from 1."""
        return (self.folder / f"{number}.eml").read_bytes()

    def photos(self, number):
        """The attachments of the n-th mail as an independent program takes them out: name -> bytes."""
        taken = {}
        for block in ATTACHMENT.finditer(self.mail(number)):
            with tempfile.TemporaryDirectory() as folder:
                out = pathlib.Path(folder, "photo")
                subprocess.run(["uudecode", "-o", str(out)], input=block.group(0), check=True)
                taken[block.group(1).decode()] = out.read_bytes()
        return taken
