#!/usr/bin/env python3
"""Checks a compiled Klickwerk.chm against its sources in docs/help.

Usage: python3 tests/help/test_help_file.py <path to Klickwerk.chm>

Unpacks the file with extract_chmLib (Debian package libchm-bin): every source
must be inside unchanged, every page in the contents under its own title,
every link of the pages, the contents and the index must lead to a file and
anchor inside, the index must not be empty, the pages must quote the
program's key texts, and the getting-started page must explain
Scripts/FirstRun.kwf as it is.
"""
import html.parser
import pathlib
import re
import subprocess
import sys
import tempfile

REPO = pathlib.Path(__file__).resolve().parents[2]
SOURCES = REPO / "docs" / "help"

# Texts the program shows, as the page must quote them (two blanks and all).
KEY_TEXTS = {
    "welcome.htm": "This is your first time running Klickwerk v1.0.  Would you like to load 'FirstRun' example script?",
    "main_window.htm": "Current StopKey.  Click here to change.",
    "keystroke_text.htm": "%ca$c",
    "window_commands.htm": "%winmov windowname; w,h",
    "random_values.htm": "Incorrect RND syntax in step #3 [rnd(1,2)].  Zeros assigned.",
    "hot_keys.htm": "Paused. Press OK to resume.",
    "saving_loading.htm": "Load failed.  Incorrect contents.",
    "files.htm": "Enabled|||Number||X||Y||Button||Additional||Mins||Secs||Repeat",
    "troubleshooting.htm": "There's an instance of Klickwerk v1.0 already running.  Create a new instance?",
}
# Tags that end a run of text, as a browser lays them out.
BLOCKS = {"p", "div", "li", "ul", "ol", "td", "th", "tr", "table", "br", "pre", "h1", "h2", "h3", "title"}


class Page(html.parser.HTMLParser):
    """Links, anchors, title, text and the rows of the example script's table."""

    def __init__(self, source):
        super().__init__()
        self.links, self.ids, self.rows, self.title, self.parts = [], set(), [], "", []
        self.open_tag = self.table = self.cell = None
        self.feed(source)
        self.text = re.sub(r"[ \t\r\n]+", " ", "".join(self.parts)).replace("\xa0", " ")

    def handle_starttag(self, tag, attrs):
        attrs = dict(attrs)
        self.open_tag = tag
        self.ids |= {attrs[key] for key in ("id", "name") if key in attrs}
        self.links += [attrs[key] for key in ("href", "src") if key in attrs]
        self.table = attrs.get("id") if tag == "table" else self.table
        if self.table == "firstrun-steps" and tag == "tr":
            self.rows.append([])
        if self.table == "firstrun-steps" and tag in ("td", "th"):
            self.rows[-1].append("")
            self.cell = True
        self.parts.append(" " if tag in BLOCKS else "")

    def handle_endtag(self, tag):
        self.open_tag = None
        self.cell = self.cell and tag not in ("td", "th")
        self.parts.append(" " if tag in BLOCKS else "")

    def handle_data(self, data):
        self.title += data if self.open_tag == "title" else ""
        self.parts.append(data)
        if self.cell:
            self.rows[-1][-1] += data.strip()


def sitemap(path):
    """(name, local) of each entry of a contents or index file; local is None for a book."""
    entries = re.findall(r'<OBJECT type="text/sitemap">(.*?)</OBJECT>', path.read_text("cp1252"), re.S | re.I)
    return [(re.search(r'name="Name" value="([^"]*)"', entry, re.I)[1],
             (re.search(r'name="Local" value="([^"]*)"', entry, re.I) or [None, None])[1]) for entry in entries]


def broken(origin, target, inside, pages):
    """Why a link does not lead to a file and anchor inside; None when it does."""
    if re.match(r"(mailto:|https?:)", target):
        return None
    name, _, anchor = target.partition("#")
    name = name or origin
    if not (inside / name).is_file():
        return f"{origin}: {target}: {name} is not inside"
    if anchor and name in pages and anchor not in pages[name].ids:
        return f"{origin}: {target}: no anchor {anchor!r}"
    return None


def problems(inside):
    """Check name -> problems found."""
    sources = sorted(path.name for path in SOURCES.iterdir() if path.name != "Klickwerk.hhp")
    pages = {name: Page((inside / name).read_text("cp1252")) for name in sources
             if name.endswith(".htm") and (inside / name).is_file()}
    sitemaps = {name: sitemap(inside / name) if (inside / name).is_file() else [] for name in ("toc.hhc", "index.hhk")}
    titles = {local: name for name, local in sitemaps["toc.hhc"] if local}
    links = [(name, link) for name, page in pages.items() for link in page.links]
    links += [(name, local) for name, entries in sitemaps.items() for _, local in entries if local]
    index = sitemaps["index.hhk"]
    script = (REPO / "Scripts" / "FirstRun.kwf").read_text().splitlines()
    # Step, X, Y, Button, Additional and Secs of each line, as the page's table shows them.
    steps = [fields[:5] + fields[6:7] for fields in (line.split("|||", 1)[1].split("||") for line in script)]
    explained = [row[:6] for row in pages.get("welcome.htm", Page("")).rows[1:]]
    return {
        "every source is inside, byte for byte": [
            f"{name} is missing or differs" for name in sources
            if not (inside / name).is_file() or (inside / name).read_bytes() != (SOURCES / name).read_bytes()],
        "every page is in the contents under its own title": [
            f"{name}: contents say {titles.get(name)!r}, the page {page.title.strip()!r}"
            for name, page in pages.items() if titles.get(name) != page.title.strip()],
        "every link of the pages, the contents and the index leads inside": [
            problem for problem in (broken(origin, link, inside, pages) for origin, link in links) if problem],
        "the index has entries, each leading somewhere": [f"only {len(index)} entries"] * (len(index) < 50)
                                                        + [f"{name!r} leads nowhere" for name, local in index
                                                           if not local],
        "the pages quote the program's key texts": [
            f"{name} lacks {text!r}" for name, text in KEY_TEXTS.items() if text not in pages.get(name, Page("")).text],
        "the getting-started page explains FirstRun.kwf step by step": [
            f"the page shows {explained}, the script holds {steps}"] * (explained != steps),
    }


def main():
    if len(sys.argv) != 2:
        print(__doc__.strip().splitlines()[2])
        return 2
    with tempfile.TemporaryDirectory() as folder:
        inside = pathlib.Path(folder) / "chm"
        unpacked = subprocess.run(["extract_chmLib", sys.argv[1], str(inside)], capture_output=True, text=True)
        output = [unpacked.stdout + unpacked.stderr] * (unpacked.returncode != 0)
        found = {"extract_chmLib unpacks the help file": output}
        if unpacked.returncode == 0:
            found.update(problems(inside))
    for name, listed in found.items():
        print(f"{'FAIL' if listed else 'ok  '} {name}" + "".join(f"\n     {problem}" for problem in listed[:20]))
    failed = sum(1 for listed in found.values() if listed)
    print(f"{len(found) - failed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
