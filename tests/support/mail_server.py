#!/usr/bin/python3
"""A mail server on this machine, which keeps what it is sent.

mail_server.py FOLDER [--refuse=ADDRESS] [--limit=BYTES]

Writes the number of its port, then serves until its input ends. Each mail becomes FOLDER/N.eml, its bytes as
they came, with FOLDER/N.envelope beside it: who sent it, and to whom.
"""
import argparse
import asyncio
import pathlib
import sys

from aiosmtpd.smtp import SMTP


class Keeper:
    def __init__(self, folder, refused):
        self.folder, self.refused, self.kept = folder, refused, 0

    async def handle_RCPT(self, _server, _session, envelope, address, _options):
        if address == self.refused:
            return "550 No such person here"
        envelope.rcpt_tos.append(address)
        return "250 OK"

    async def handle_DATA(self, _server, _session, envelope):
        self.kept += 1
        (self.folder / f"{self.kept}.envelope").write_text("\n".join([envelope.mail_from, *envelope.rcpt_tos]) + "\n")
        unfinished = self.folder / "unfinished"
        unfinished.write_bytes(envelope.original_content)
        unfinished.rename(self.folder / f"{self.kept}.eml")
        return "250 Taken"


async def serve(arguments):
    folder = pathlib.Path(arguments.folder)
    folder.mkdir(parents=True, exist_ok=True)
    keeper = Keeper(folder, arguments.refuse)
    loop = asyncio.get_running_loop()
    server = await loop.create_server(
        lambda: SMTP(keeper, hostname="mail.example.com", data_size_limit=arguments.limit, loop=loop), "127.0.0.1", 0)
    print(server.sockets[0].getsockname()[1], flush=True)
    async with server:
        await loop.run_in_executor(None, sys.stdin.read)


parser = argparse.ArgumentParser()
parser.add_argument("folder")
parser.add_argument("--refuse")
parser.add_argument("--limit", type=int, default=50_000_000)
asyncio.run(serve(parser.parse_args()))
