"""The desktop's sound service, a real one of its own: a loudspeaker that nobody hears, and a microphone
that hears what it plays."""
import array
import contextlib
import os
import pathlib
import shutil
import subprocess
import tempfile

from hidden_desktop import wait_for


class SoundService:
    """with SoundService() as sound: programs started with sound.environment play and record there."""

    def __enter__(self):
        self._folder = tempfile.mkdtemp(prefix="hearthbook-sound-")
        socket = pathlib.Path(self._folder, "native")
        self.environment = {"PULSE_SERVER": f"unix:{socket}", "PULSE_COOKIE": f"{self._folder}/cookie"}
        own = dict(os.environ, **{name: self._folder for name in
                                  ("HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "PULSE_RUNTIME_PATH")})
        self._service = subprocess.Popen(
            ["pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no", "--realtime=no",
             "--high-priority=no", f"--load=module-native-protocol-unix auth-anonymous=1 socket={socket}",
             "--load=module-null-sink sink_name=album_out norewinds=1"],
            env=own, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_for(socket.exists, "the sound service")
        return self

    def __exit__(self, *_):
        self._service.kill()
        self._service.wait()
        shutil.rmtree(self._folder, ignore_errors=True)

    @contextlib.contextmanager
    def listening(self, folder):
        """Gives a function that answers how loud it has been since then: 32767 at the loudest."""
        heard = pathlib.Path(folder, "heard.raw")
        with open(heard, "wb") as sink:
            ear = subprocess.Popen(["parec", "--device=album_out.monitor", "--format=s16le", "--rate=11025",
                                    "--channels=1", "--latency-msec=50"],
                                   env=dict(os.environ, **self.environment), stdin=subprocess.DEVNULL, stdout=sink)

        def loudest():
            samples = heard.read_bytes()
            return max(map(abs, array.array("h", samples[:len(samples) // 2 * 2])), default=0)
        try:
            wait_for(lambda: heard.stat().st_size > 0, "somebody listening")
            yield loudest
        finally:
            ear.kill()
            ear.wait()
            heard.unlink()

    def speak(self, words, folder):
        """Somebody speaks beside the microphone."""
        voice = pathlib.Path(folder, "voice.wav")
        subprocess.run(["espeak-ng", "-w", str(voice), words], check=True, stdin=subprocess.DEVNULL)
        return subprocess.Popen(["paplay", str(voice)], env=dict(os.environ, **self.environment),
                                stdin=subprocess.DEVNULL)
