"""Pictures and sounds for the pages, by the tools of the system."""
import subprocess


def make_tone(file):
    subprocess.run(["sox", "-n", "-r", "22050", "-c", "1", "-b", "16", file, "synth", "30", "sine", "440",
                    "vol", "0.2"], check=True)


def size_of(picture):
    told = subprocess.run(["identify", "-format", "%w %h", picture], check=True, capture_output=True, text=True)
    return tuple(map(int, told.stdout.split()))
