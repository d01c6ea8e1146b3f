"""Makes a copy of a source file with one change: change.py SOURCE COPY OLD NEW. OLD must be in it once."""

import pathlib
import sys

source, copy, old, new = sys.argv[1:]
text = pathlib.Path(source).read_text(encoding="utf-8")
if text.count(old) != 1:
    sys.exit(f"{source} has '{old}' {text.count(old)} times, not once; give change.py a text that is there once")
pathlib.Path(copy).write_text(text.replace(old, new), encoding="utf-8")
