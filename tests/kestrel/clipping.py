#!/usr/bin/python3
"""Runs the program that looks for texts that are cut off on a screen as users have it. Usage: clipping.py E2E PROGRAM SCALE,
E2E being the folder with the desktop of the end-to-end tests. A folder in PTV_SHOTS gets a picture of each window."""
import os
import subprocess
import sys
import tempfile

sys.path.insert(0, sys.argv[1])

from desktop import Desktop  # noqa: E402


class Screen(Desktop):
    SIZE = (1920, 1200)


def main():
    with tempfile.TemporaryDirectory() as folder:
        screen = Screen(os.environ.get("PTV_SHOTS", folder))
        try:
            os.chmod(folder, 0o700)
            # A window that has gone while the server was asked about it is no fault.
            environment = dict(screen.applications(folder), QT_SCALE_FACTOR=sys.argv[3], XDG_CONFIG_HOME=folder,
                               QT_LOGGING_RULES="qt.qpa.xcb.warning=false")
            return subprocess.run([sys.argv[2], "-platform", "xcb", *sys.argv[4:]], env=environment).returncode
        finally:
            screen.close()


if __name__ == "__main__":
    sys.exit(main())
