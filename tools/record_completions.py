#!/usr/bin/python3
"""Records the completions of deploymgr at work: tools/record_completions.py BIN [DIRECTORY]

Types lines and Tab into a bash, a zsh and a fish, each on a terminal of its own, with the examples and one
remote profile at hand, and writes for each shell what the terminal showed: a picture, completions-SHELL.svg,
and a recording that terminal players show, completions-SHELL.cast. They go to docs/images when no directory
is given. BIN is the directory of deploymgr. Wants the three shells and python3-pyte (make recordings sees to it).
"""
import fcntl
import html
import json
import os
import pathlib
import pty
import re
import select
import shutil
import struct
import subprocess
import sys
import tempfile
import termios
import time

import pyte

TREE = pathlib.Path(__file__).resolve().parent.parent
COLUMNS, LINES = 92, 24
STEPS = (
    ("Commands", "deploymgr re"),
    ("Options of a command", "deploymgr deploy --no"),
    ("Platforms of the project", "deploymgr list TideLogger.vproj -p "),
    ("Configurations", "deploymgr list TideLogger.vproj -c "),
    ("Remote profiles", "deploymgr deploy TideLogger.vproj -p Win32 --to-profile "),
    ("Entries of the project", "deploymgr explain TideLogger.vproj data/"),
)
COMPLETIONS = TREE / "packaging" / "completions"
SHELLS = {
    "bash": (["bash", "--noprofile", "--norc", "-i"],
             f"bind 'set show-all-if-ambiguous on'; bind 'set bell-style none'; source {COMPLETIONS}/deploymgr.bash"),
    "zsh": (["zsh", "-f", "-i"],
            f"PROMPT='$ ' PROMPT_EOL_MARK= ; unsetopt beep list_ambiguous; fpath=({COMPLETIONS} $fpath); autoload -U compinit; compinit -D -u"),
    "fish": (["fish", "--no-config", "-i"],
             "function fish_prompt; echo -n '$ '; end; set -g fish_greeting; set -g fish_autosuggestion_enabled 0; "
             f"source {COMPLETIONS}/deploymgr.fish"),
}
# How long a shell says nothing when it has said everything.
QUIET, PATIENCE = 0.4, 3
TAB, FRESH_LINE, CLEAR = "\t", "\x15", "\x0c"


class Terminal:
    """A shell on a terminal; keeps what it shows."""

    def __init__(self, arguments, environment, directory):
        self.screen = pyte.Screen(COLUMNS, LINES)
        self.stream = pyte.ByteStream(self.screen)
        self.events = None  # what is recorded
        self.clock = 0.0
        self.process, self.file = pty.fork()
        if self.process == 0:
            os.chdir(directory)
            os.execvpe(arguments[0], arguments, environment)
        fcntl.ioctl(self.file, termios.TIOCSWINSZ, struct.pack("HHHH", LINES, COLUMNS, 0, 0))

    def read(self, patience=PATIENCE):
        """Takes what the shell says until it is quiet."""
        end = time.monotonic() + patience
        said = b""
        while time.monotonic() < end and select.select([self.file], [], [], QUIET if said else patience)[0]:
            try:
                said += os.read(self.file, 65536)
            except OSError:
                break
        self.stream.feed(said)
        if self.events is not None and said:
            self.events.append([round(self.clock, 2), "o", said.decode("utf-8", "replace")])

    def type(self, keys, pause=0.0):
        """The recording has a pace of its own, the same each time."""
        self.clock += pause
        os.write(self.file, keys.encode())
        self.read()

    def close(self):
        os.write(self.file, b"exit\r")
        os.close(self.file)
        os.waitpid(self.process, 0)

    def lines(self):
        """The lines that are not empty at the end, each as (text, color, bold) pieces."""
        rows = []
        for y in range(LINES):
            pieces = []
            for x in range(COLUMNS):
                char = self.screen.buffer[y][x]
                look = (char.fg, char.bold, char.reverse)
                if pieces and pieces[-1][1] == look:
                    pieces[-1][0] += char.data
                else:
                    pieces.append([char.data, look])
            rows.append(pieces)
        while rows and not "".join(text for text, _ in rows[-1]).strip():
            rows.pop()
        return rows


def record(shell, environment, directory):
    """The frames, as (title, lines), and the events of one shell."""
    arguments, preparation = SHELLS[shell]
    terminal = Terminal(arguments, environment, directory)
    terminal.read()
    terminal.type(preparation + "\r")
    terminal.type(CLEAR)
    terminal.events = []
    frames = []
    for title, line in STEPS:
        for start in range(0, len(line), 4):
            terminal.type(line[start:start + 4], 0.15)
        terminal.type(TAB, 0.6)
        frames.append((title, terminal.lines()))
        terminal.clock += 2
        terminal.type(FRESH_LINE)
        terminal.type(CLEAR)
    events = terminal.events
    terminal.close()
    return frames, events


COLORS = {"default": "#d8d8d8", "black": "#767676", "red": "#e06c75", "green": "#98c379", "brown": "#e5c07b",
          "blue": "#61afef", "magenta": "#c678dd", "cyan": "#56b6c2", "white": "#d8d8d8"}
WIDTH, HEIGHT, MARGIN = 7.825, 17, 12  # of a character, of a line


def svg(shell, frames):
    """The frames, one below the other."""
    body = []
    y = MARGIN
    for title, lines in frames:
        y += HEIGHT
        body.append(f'<text x="{MARGIN}" y="{y}" class="title">{html.escape(title)}</text>')
        for pieces in lines:
            y += HEIGHT
            column = 0
            for text, (color, bold, _) in pieces:
                style = ' font-weight="bold"' if bold else ""
                fill = COLORS.get(color, COLORS["default"])
                # Words that stand apart are placed by themselves: not every viewer keeps several spaces.
                for words in re.finditer(r"\S+(?: \S+)*", text):
                    x = MARGIN + (column + words.start()) * WIDTH
                    body.append(f'<text x="{x:g}" y="{y}" fill="{fill}"{style}>{html.escape(words.group())}</text>')
                column += len(text)
        y += HEIGHT // 2
    width, height = int(COLUMNS * WIDTH + 2 * MARGIN), y + MARGIN
    return "\n".join([
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" viewBox="0 0 {width} {height}" '
        f'font-family="DejaVu Sans Mono, Menlo, Consolas, monospace" font-size="13">',
        f"<title>Completions of deploymgr in {shell}</title>",
        "<style>.title{fill:#8a8a8a;font-family:sans-serif}</style>",
        f'<rect width="{width}" height="{height}" rx="6" fill="#1e1e1e"/>', *body, "</svg>", ""])


def cast(shell, events):
    header = {"version": 2, "width": COLUMNS, "height": LINES, "title": f"Completions of deploymgr in {shell}",
              "env": {"SHELL": shell, "TERM": "xterm"}}
    return "".join(json.dumps(line, ensure_ascii=False) + "\n" for line in (header, *events))


def main():
    if len(sys.argv) not in (2, 3):
        sys.exit(__doc__)
    programs = pathlib.Path(sys.argv[1]).resolve()
    target = pathlib.Path(sys.argv[2] if len(sys.argv) > 2 else TREE / "docs" / "images")
    missing = [shell for shell in SHELLS if not shutil.which(shell)]
    if missing:
        sys.exit(f"record_completions.py: please install {', '.join(missing)}")
    target.mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory() as place:
        directory = pathlib.Path(place) / "tide-logger"
        shutil.copytree(TREE / "examples" / "tide-logger", directory)
        environment = {"PATH": f"{programs}:{os.environ['PATH']}", "HOME": place, "TERM": "xterm",
                       "LC_ALL": "C.UTF-8", "PS1": "$ "}
        for name, host in (("bench", "bench"), ("harbour", "harbour")):
            subprocess.run([programs / "deploymgr", "profile", "add", name, "--platform", "Win32", "--kind", "ssh",
                            "--host", host, "--path", "/srv/tide-logger"],
                           env=environment, check=True, stdout=subprocess.DEVNULL)
        for shell in SHELLS:
            frames, events = record(shell, environment, directory)
            (target / f"completions-{shell}.svg").write_text(svg(shell, frames), encoding="utf-8")
            (target / f"completions-{shell}.cast").write_text(cast(shell, events), encoding="utf-8")


main()
