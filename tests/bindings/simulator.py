"""A running koraxsim with its own folder: the link to its device, and its paper."""
import contextlib
import subprocess
import tempfile
import time
from pathlib import Path

LIMIT_S = 60


def wait_until(condition):
    """Waits for what comes a moment later, as the paper does after the answer; or gives up."""
    deadline = time.monotonic() + LIMIT_S
    while not condition() and time.monotonic() < deadline:
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
            wait_until(lambda: link.exists() or process.poll() is not None)
            yield link, paper
        finally:
            process.terminate()
            process.wait()
