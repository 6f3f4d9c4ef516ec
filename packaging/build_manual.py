#!/usr/bin/env python3
"""Renders the pages of docs as one manual: build_manual.py TREE DIRECTORY

Each task of the user guide becomes a page of its own. A link that leads nowhere fails the build.
"""
import html.parser
import pathlib
import re
import shutil
import subprocess
import sys

START = "docs/README.md"
TASKS = "docs/user-guide.md"
STYLE = """
body { font: 16px/1.5 sans-serif; max-width: 54rem; margin: 0 auto; padding: 1rem; color: #222; background: #fff; }
nav { border-bottom: 1px solid #ccc; margin-bottom: 1rem; padding-bottom: .5rem; }
nav a { margin-right: 1rem; }
pre, code { font: 14px/1.4 monospace; background: #f3f3f3; }
pre { padding: .6rem; overflow-x: auto; }
table { border-collapse: collapse; display: block; overflow-x: auto; }
td, th { border: 1px solid #ccc; padding: .3rem .5rem; text-align: left; vertical-align: top; }
img { max-width: 100%; }
a { color: #1f5f99; }
@media (prefers-color-scheme: dark) {
  body { color: #ddd; background: #1c1c1c; }
  pre, code { background: #2a2a2a; }
  a { color: #7db8ea; }
}
"""


def fail(text):
    sys.exit(f"build_manual.py: {text}")


def page_name(source):
    """The page of a document of the tree, such as "examples-README.html"."""
    if source == START:
        return "index.html"
    path = pathlib.PurePosixPath(source)
    parts = path.parts[1:] if path.parts[0] == "docs" else path.parts
    return "-".join(parts)[: -len(".md")] + ".html"


def anchor_of(heading):
    """As a forge makes it of a heading."""
    plain = re.sub(r"[`*]", "", heading).strip().lower()
    return re.sub(r"[^\w\- ]", "", plain).replace(" ", "-")


class Manual:
    def __init__(self, tree, target):
        self.tree = tree
        self.target = target
        self.pages = {}  # name of the page: text in Markdown
        self.homes = {}  # (document, anchor): page that holds it
        self.sources = {}  # name of the page: document
        self.open = [START]

    def add(self, name, source, text):
        self.pages[name] = text
        self.sources[name] = source
        for heading in re.findall(r"^#+ (.*)$", without_code(text), re.M):
            self.homes[source, anchor_of(heading)] = name

    def read(self, source):
        text = (self.tree / source).read_text(encoding="utf-8")
        if source == TASKS:
            first, *tasks = re.split(r"^(?=## )", text, flags=re.M)
            self.add(page_name(source), source, first)
            for task in tasks:
                name = f"task-{anchor_of(task.splitlines()[0][3:])}.html"
                self.add(name, source, task[1:])
        else:
            self.add(page_name(source), source, text)
        for link in re.findall(r"\]\(([^)#:]+\.md)", without_code(text)):
            found = resolve(source, link)
            if found not in self.sources.values() and found not in self.open:
                self.open.append(found)

    def gather(self):
        for source in self.open:  # grows while it is walked
            if not (self.tree / source).is_file():
                fail(f"{source} is linked and is not there")
            self.read(source)

    def link(self, name, link):
        """Where a link of a page leads in the manual."""
        if re.match(r"[a-z]+:", link):
            return link
        path, _, anchor = link.partition("#")
        source = resolve(self.sources[name], path) if path else self.sources[name]
        if source in self.sources.values():
            if not anchor:
                return page_name(source)
            home = self.homes.get((source, anchor))
            if not home:
                fail(f"{self.sources[name]}: there is no heading for {link}")
            return ("" if home == name else home) + "#" + anchor
        file = self.tree / source
        if file.is_dir():
            return None
        if not file.is_file():
            fail(f"{self.sources[name]}: {link} leads nowhere")
        copy = self.target / "files" / source
        copy.parent.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(file, copy)
        return f"files/{source}"

    def rendered(self, name):
        def replaced(match):
            found = self.link(name, match.group(3))
            return f"{match.group(1)}[{match.group(2)}]({found})" if found else match.group(2)

        text = over_prose(
            self.pages[name],
            lambda prose: re.sub(r"(!?)\[((?:[^\[\]]|\[[^\]]*\])*)\]\(([^)\s]+)\)", replaced, prose),
        )
        title = re.search(r"^# (.*)$", text, re.M).group(1).replace("`", "")
        header = self.target / "header.html"
        links = '<a href="index.html">Manual</a>'
        if name.startswith("task-"):
            links += f'<a href="{page_name(TASKS)}">User guide</a>'
        header.write_text(f"<nav>{links}</nav>\n", encoding="utf-8")
        subprocess.run(
            ["pandoc", "--from=gfm", "--to=html5", "--standalone", "--css=style.css",
             "--metadata", f"pagetitle={title}", f"--include-before-body={header}",
             "--output", str(self.target / name)],
            input=text.encode(), check=True)
        header.unlink()

    def write(self):
        self.target.mkdir(parents=True, exist_ok=True)
        (self.target / "style.css").write_text(STYLE, encoding="utf-8")
        for name in self.pages:
            self.rendered(name)


def resolve(source, link):
    parts = []
    for part in (*pathlib.PurePosixPath(source).parts[:-1], *pathlib.PurePosixPath(link).parts):
        if part == "..":
            parts.pop()
        elif part != ".":
            parts.append(part)
    return "/".join(parts)


def over_prose(text, action):
    """The action on everything but code."""
    pieces = re.split(r"(^```.*?^```$|`[^`\n]*`)", text, flags=re.M | re.S)
    # A link may hold code in its text, so code inside of a line is put back before the action.
    joined = []
    for piece in pieces:
        if piece.startswith("```"):
            joined.append((piece, False))
        elif joined and joined[-1][1]:
            joined[-1] = (joined[-1][0] + piece, True)
        else:
            joined.append((piece, True))
    return "".join(action(piece) if is_prose else piece for piece, is_prose in joined)


def without_code(text):
    return re.sub(r"^```.*?^```$", "", text, flags=re.M | re.S)


class Links(html.parser.HTMLParser):
    def __init__(self):
        super().__init__()
        self.targets, self.ids = [], set()

    def handle_starttag(self, tag, attributes):
        for name, value in attributes:
            if name in ("href", "src"):
                self.targets.append(value)
            elif name == "id":
                self.ids.add(value)


def check(target):
    """Every link of what was rendered leads to a file, and to a place in it."""
    pages = {}
    for file in target.glob("*.html"):
        pages[file.name] = Links()
        pages[file.name].feed(file.read_text(encoding="utf-8"))
    count = 0
    for name, page in pages.items():
        for link in page.targets:
            if re.match(r"[a-z]+:", link):
                continue
            count += 1
            path, _, anchor = link.partition("#")
            if path and not (target / path).is_file():
                fail(f"{name}: {link} leads nowhere")
            if anchor and anchor not in pages[path or name].ids:
                fail(f"{name}: {link} leads to no place of the page")
    return len(pages), count


def main():
    if len(sys.argv) != 3:
        fail("usage: build_manual.py TREE DIRECTORY")
    target = pathlib.Path(sys.argv[2])
    shutil.rmtree(target, ignore_errors=True)
    manual = Manual(pathlib.Path(sys.argv[1]), target)
    manual.gather()
    manual.write()
    pages, links = check(target)
    print(f"{pages} pages with {links} links: {target / 'index.html'}")


main()
