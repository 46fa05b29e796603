#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Holds the pages to what they show.

A fenced block of a page says behind its language what it is:

    ```cpp examples/host/main.cpp      these lines stand in that file, one after the other
    ```sh run                          these commands work, in a checkout that ./run has built
    ```text shown                      each of these lines is in what the commands print

pages.py --source DIR                      checks the first kind in README.md and all pages of docs/
pages.py --source DIR --build DIR --run P  runs the commands of docs/P, in a folder of their own
"""
import argparse
import re
import subprocess
import sys
import tempfile
import textwrap
from pathlib import Path
from typing import NamedTuple

FENCE = re.compile(r"^```(.*)$")
QUOTED_LANGUAGES = {"cpp", "cmake"}


class Block(NamedTuple):
    line: int
    language: str
    note: str
    text: str


def blocks_of(page: Path) -> list[Block]:
    """All fenced blocks of a page, in order."""
    blocks, open_block = [], None
    for number, line in enumerate(page.read_text(encoding="utf-8").splitlines(), 1):
        fence = FENCE.match(line)
        if fence and open_block is None:
            language, _, note = fence[1].strip().partition(" ")
            open_block = (number, language, note.strip(), [])
        elif fence:
            number, language, note, lines = open_block
            blocks.append(Block(number, language, note, "\n".join(lines)))
            open_block = None
        elif open_block is not None:
            open_block[3].append(line)
    if open_block is not None:
        raise ValueError(f"{page}:{open_block[0]}: this block has no end")
    return blocks


def same_indentation(text: str) -> str:
    return textwrap.dedent(text).strip("\n")


def stands_in(quote: str, text: str) -> bool:
    """Whether the lines of the quotation follow each other in the text, at whatever indentation."""
    wanted = same_indentation(quote).split("\n")
    lines = text.splitlines()
    return any(same_indentation("\n".join(lines[at:at + len(wanted)])).split("\n") == wanted
               for at in range(len(lines) - len(wanted) + 1))


def check_quotations(source: Path) -> list[str]:
    """What is wrong with the quotations of all pages, and a complaint when there are none."""
    problems, count = [], 0
    for page in [source / "README.md", *sorted((source / "docs").glob("*.md"))]:
        for block in blocks_of(page):
            if block.language not in QUOTED_LANGUAGES:
                continue
            count += 1
            where = f"{page.relative_to(source)}:{block.line}"
            file = source / block.note
            if not block.note or not file.is_file():
                problems.append(f"{where}: names no file that is there: {block.note!r}")
            elif not stands_in(block.text, file.read_text(encoding="utf-8")):
                problems.append(f"{where}: not in {block.note}")
    if count == 0:
        problems.append("no page quotes anything")
    return problems


def make_checkout(source: Path, build: Path, folder: Path) -> None:
    """What looks like a checkout after ./run: links to the sources and to the build."""
    for entry in source.iterdir():
        if entry.name not in {".git", "build", "out"}:
            (folder / entry.name).symlink_to(entry)
    (folder / "build").mkdir()
    (folder / "build" / "dev").symlink_to(build)


def run_commands(page: Path, source: Path, build: Path) -> list[str]:
    """Runs the commands of a page as one script, and looks for what they should print."""
    blocks = blocks_of(page)
    script = "\n".join(b.text for b in blocks if b.language == "sh" and b.note == "run")
    if not script:
        return [f"{page.name} has no commands to run"]
    with tempfile.TemporaryDirectory() as folder:
        make_checkout(source, build, Path(folder))
        result = subprocess.run(["bash", "-eu", "-c", script], cwd=folder, text=True,
                                stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                stderr=subprocess.STDOUT, errors="replace", check=False)
    problems = []
    if result.returncode != 0:
        problems.append(f"{page.name}: exit status {result.returncode}")
    printed = [" ".join(line.split()) for line in result.stdout.splitlines()]
    for block in blocks:
        if (block.language, block.note) != ("text", "shown"):
            continue
        problems += [f"{page.name}:{block.line}: never printed: {line}"
                     for line in block.text.splitlines() if " ".join(line.split()) not in printed]
    return problems + result.stdout.splitlines() if problems else []


def whole_path(name: str) -> Path:
    return Path(name).resolve()


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--source", type=whole_path, required=True)
    parser.add_argument("--build", type=whole_path)
    parser.add_argument("--run", metavar="PAGE")
    options = parser.parse_args()
    if options.run:
        problems = run_commands(options.source / "docs" / options.run, options.source, options.build)
    else:
        problems = check_quotations(options.source)
    print("\n".join(problems))
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
