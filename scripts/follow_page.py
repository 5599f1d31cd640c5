#!/usr/bin/env python3
"""Does what a page of the documentation says, word for word, in a folder that holds nothing but the examples.

What the page tells to "save as" a name is saved, and changed where it says "change". Scripts that it calls are played
for a few frames. Python that belongs to no file is run where it stands, and a session must show what the page shows.
"""
import doctest
import os
import re
import subprocess
import sys
import tempfile

import play  # which also has the blocks play for a few frames only

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
# The paragraph before a block, the block's language, and its lines.
BLOCK = re.compile(r"((?:^.+\n)*)\n?^```(\w+)\n((?:.*\n)*?)^```$", re.MULTILINE)
FILE = re.compile(r"(?:[Ss]ave\s+this\s+as|[Cc]hange)\s+`([^`]+)`")
COMPARISON = doctest.ELLIPSIS | doctest.NORMALIZE_WHITESPACE


class Page:
    def __init__(self, path):
        self._path = path
        self.names = {"__name__": "__main__"}  # what its blocks have defined so far
        self._file = None  # the one that it spoke of last

    def follow(self):
        """Does what the page says, in the current folder."""
        with open(self._path, encoding="utf-8") as file:
            blocks = list(BLOCK.finditer(file.read()))
        for block in blocks:
            before, language, code = block.groups()
            named = FILE.search(before)
            self._file = named.group(1) if named else self._file
            where = "%s, line %d" % (os.path.basename(self._path), block.string.count("\n", 0, block.start(2)) + 1)
            if language == "diff":
                change(self._file, code, where)
            elif language == "sh":
                for script in re.findall(r"python3 (\S+\.py)$", code, re.MULTILINE):
                    self.play(script)
            elif language == "pycon":
                self._compare(code, where)
            elif named and language in ("python", "json"):
                with open(self._file, "w") as file:
                    file.write(code)
            elif language == "python":
                exec(compile(code, where, "exec"), self.names)

    def play(self, script):
        subprocess.run([sys.executable, play.__file__, script], check=True)

    def _compare(self, session, where):
        test = doctest.DocTestParser().get_doctest(session, self.names, where, where, 0)
        if doctest.DocTestRunner(optionflags=COMPARISON).run(test, clear_globs=False).failed:
            sys.exit("%s shows something else" % where)
        self.names = test.globs


def change(name, difference, where):
    """Does to a file what a difference without line numbers tells; exactly one place has to fit."""
    old, new = ("".join(line[1:] + "\n" for line in difference.splitlines() if line[:1] in ("", " ", sign))
                for sign in "-+")
    with open(name) as file:
        text = file.read()
    if text.count(old) != 1:
        sys.exit("%s fits %d places in %s" % (where, text.count(old), name))
    with open(name, "w") as file:
        file.write(text.replace(old, new))


def follow(page):
    """Follows a page in a folder of its own."""
    with tempfile.TemporaryDirectory() as folder:
        os.chdir(folder)
        os.symlink(os.path.join(ROOT, "examples"), "examples")
        page.follow()
        os.chdir(ROOT)


if __name__ == "__main__":
    follow(Page(os.path.abspath(sys.argv[1])))
