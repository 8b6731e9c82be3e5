"""A running koraxsim with its own folder: the link to its device, and its paper."""
import contextlib
import subprocess
import tempfile
import time
from pathlib import Path

START_LIMIT_S = 60


def wait_for(link, process):
    deadline = time.monotonic() + START_LIMIT_S
    while not link.exists():
        if process.poll() is not None or time.monotonic() > deadline:
            raise RuntimeError("the simulator did not come up")
        time.sleep(0.01)


@contextlib.contextmanager
def simulator(program, device_type=10):
    """Yields the path of the device and that of the paper."""
    with tempfile.TemporaryDirectory(prefix="koraxdr-") as folder:
        link, paper = Path(folder, "device"), Path(folder, "paper")
        with paper.open("w", encoding="utf-8") as output:
            process = subprocess.Popen(
                [program, "--type", str(device_type), "--link", link], stdin=subprocess.DEVNULL, stdout=output)
        try:
            wait_for(link, process)
            yield link, paper
        finally:
            process.terminate()
            process.wait()
