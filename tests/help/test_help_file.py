#!/usr/bin/env python3
"""Checks a compiled Klickwerk.chm against the sources in docs/help.

Usage: python3 tests/help/test_help_file.py <path to Klickwerk.chm>

The file is unpacked with extract_chmLib (Debian package libchm-bin). Every
page, the style sheet, the table of contents and the index must be inside and
equal to their sources; every link of the pages, the contents and the index
must lead to a file (and anchor) inside; the pages must carry the program's
own texts. The example script Scripts/FirstRun.kwf, which the getting-started
page explains, is checked against the script line format as well.
"""
import html.parser
import pathlib
import re
import subprocess
import sys
import tempfile

REPO = pathlib.Path(__file__).resolve().parents[2]
HELP_SOURCES = REPO / "docs" / "help"
FIRST_RUN = REPO / "Scripts" / "FirstRun.kwf"
PROJECT = "Klickwerk.hhp"
TOC = "toc.hhc"
INDEX = "index.hhk"

CLICK_ACTIONS = ["No Click", "Left Click", "Left DblClick", "Left Down", "Left Up",
                 "Right Click", "Right DblClick", "Right Down", "Right Up"]
WINDOW_COMMANDS = ["%winfoc", "%winmin", "%winmax", "%winrest", "%winmov", "%winclose"]

# The command letters of the keystroke-text language and the key each names.
COMMAND_LETTERS = [
    ("a", "Alt"), ("c", "Ctrl"), ("e", "Escape"), ("r", "Return"), ("s", "Shift"),
    ("t", "Tab"), ("d", "Delete"), ("b", "Backspace"), ("n", "End"), ("h", "Home"),
    ("u", "Page Up"), ("j", "Page Down"), (";", "Up Arrow"), (".", "Down Arrow"),
    (",", "Left Arrow"), ("/", "Right Arrow"), ("w", "Windows Key"),
    ("l", "Caps Lock"), ("f", "F1 to F9"),
]

# Texts the program shows, exactly, with the page that must quote them.
PROGRAM_TEXTS = {
    "welcome.htm": [
        "Failed to locate Settings file.  Loading defaults.",
        "This is your first time running Klickwerk v1.0.  Would you like to load "
        "'FirstRun' example script?",
        "Do not use your mouse and keyboard while the script is running.  "
        "You may press ESCAPE to stop the script at any time.",
        "%wr$w", "notepad%r$r", "%winmov Untitled - Notepad; 600,400",
    ],
    "main_window.htm": [
        "Information (general, warnings, errors, etc.)", "X-Coordinate", "Y-Coordinate",
        "Current StopKey.  Click here to change.",
        "Total clicks counter.  Click here to reset.",
        "Total number of steps.  Click here to change.",
        "View Did You Know?", "View Help File", "ESCAPE TO STOP",
        "Save", "Load", "Settings", "About", "Help", "Exit",
    ],
    "steps.htm": CLICK_ACTIONS + [
        "Left Down is not followed by Left Up.", "Right Down is not followed by Right Up.",
    ],
    "editing_cells.htm": [
        "List is empty.", "Must be a positive number.",
        "Can not be blank and must be a positive number.",
        "RND Syntax: RND(lowerbound, upperbound, roundoff)",
        "Incorrect RND syntax.  Use RND(#,#,#)",
    ],
    "keystroke_editor.htm": [
        "These keys require no release:", "%l or $l = Press CAPS LOCK",
        "%F# or $F# = Press F# (except 10-12)", "F10-F12 are HotKeys", "Special commands:",
        "Syntax: %command (windowname)", "Extended syntax for %winmov: add '; w,h'",
        "%winfoc = Bring window to focus (front)", "%winmin = Minimize", "%winmax = Maximize",
        "%winrest = Restore", "%winmov = Move/Size (see Help file)", "%winclose = Close",
        "SHIFT: Pressed 1| Released 0", "Press Yes to fix (might yield unwanted results!)",
        "Please re-check the text, as it's possible the keys were not released at the right time.",
    ],
    "list_commands.htm": [
        "Remove Step #3", "Remove Steps", "Remove Step(s)",
        "Are you sure you want to change ALL values in Button column to Left Click?",
        "Are you sure you want to change SELECTED values in Secs column to 5?",
        "CHECKED", "NOT CHECKED", "Are you sure you want to clear the list?",
    ],
    "step_count.htm": [
        "Must be a number.", "Loading steps...  Please wait.", "Steps successfully changed.",
    ],
    "saving_loading.htm": [
        "Save Configuration File (Script File)", "Load Configuration File (Script File)",
        "Klickwerk CFG file", "Klickwerk001.kwf", "Nothing to save.", "Saving...  Please wait.",
        "Saved successfully.", "Loading... Please wait.", "Loaded successfully.",
        "Load failed.  Incorrect contents.", " is empty.",
    ],
    "keystroke_text.htm": [
        "%ca$c", "%r$r", "%f1", "%f9", "%f10", "%l", "%A", "%a%f4$a", "%wr$w",
    ],
    "window_commands.htm": WINDOW_COMMANDS + [
        "%active", "%winmov windowname; w,h", "%winmov Calculator; 300,200", "-1",
    ],
    "random_values.htm": [
        "RND(first, span, decimals)", "RND(100,50,0)",
        "RND Syntax: RND(lowerbound, upperbound, roundoff)",
        "Incorrect RND syntax.  Use RND(#,#,#)",
        "Incorrect RND syntax in step #3 [rnd(1,2)].  Zeros assigned.",
    ],
    "recording.htm": [
        "New script will be created.  Save current script?",
        "Press ESCAPE to stop recording.", "Press F11 to create a new step manually.",
        "Do not press F10", "Press Enter to create a new step (turned on by user).",
        "ESCAPE TO STOP", "F5 TO STOP",
        "There are 3 steps that are not part of this recording.  They are disabled "
        "(unchecked).  Would you like to remove those steps?",
        "Recording completed successfully.",
        "Please re-check the text, as it's possible the keys were not released at the right time.",
    ],
    "playback.htm": [
        "Pressing Left Up before Left Down does not do anything.",
        "Pressing Right Up before Right Down does not do anything.",
        "Left Down is not followed by Left Up.", "Right Down is not followed by Right Up.",
        "Remaining until next step: 00:01:05", "Remaining until next step: <1 second",
    ],
    "hot_keys.htm": [
        "Paused. Press OK to resume.", "PAUSED", "StopKey successfully changed to F5",
        "Current StopKey.  Click here to change.", "ESCAPE",
    ],
    "settings_panel.htm": [
        "Keep Klickwerk on top", "Enable Smooth Pointer Scroll", "Display Countdown",
        "Auto Start on Load", "Auto Start Minimized", "Start with Windows",
        "Start Did You Know on load", "REC: Enter creates new step", "Enable Mouse-Saver",
        "Hide", "Change StopKey", "Reset step counter", "Change number of steps",
        "Reset total clicks counter?",
        "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Run",
    ],
    "hints_updates.htm": [
        "View Did You Know?", "Hint: 3", "You have not checked for updates since",
        "Would you like to check for updates now?", "Updates for Klickwerk v1.0 Build 57",
        "Accessing the server... Please wait.", "There is an update available!",
        "Press download button to download build 58", "No updates available at this time.",
        "Please close Klickwerk v1.0 before installing the update.",
    ],
    "command_line.htm": [
        " /nostart", " /norep",
        "Failed to load C:\\Tools\\Klickwerk\\Scripts\\Backup.kwf script file.  "
        "Script does not exist/corrupted.",
    ],
    "files.htm": [
        "Settings.ini", "Data.dat", "Error.log", "DYK.dat", "Scripts\\FirstRun.kwf", "[MAIN]",
        "True|||1||-1||-1||No Click||||0||0||0",
        "Enabled|||Number||X||Y||Button||Additional||Mins||Secs||Repeat",
    ] + ["OnTop", "GRepeat", "SmoothPointer", "ShowCount", "AutoStart", "StartMin",
         "WithWindows", "DYK", "Enter4Step", "MouseSaver", "StopKey", "StepCounter",
         "RecMode", "Height", "ColWidth", "LastCheck", "FirstRun"],
    "troubleshooting.htm": [
        "Klickwerk v1.0 logged some minor errors during this run.  Please send Error.log "
        "to support@klickwerk.example.  Thank you.",
        "There's an instance of Klickwerk v1.0 already running.  Create a new instance?",
        "Unable to locate FirstRun.kwf script file.",
    ],
}

BLOCK_TAGS = {"p", "div", "li", "ul", "ol", "td", "th", "tr", "table", "br", "pre",
              "h1", "h2", "h3", "title", "body", "head"}


class Page(html.parser.HTMLParser):
    """What the checks need from one HTML file: links, anchors, text, tables."""

    def __init__(self, source):
        super().__init__(convert_charrefs=True)
        self.links, self.resources, self.ids = [], [], set()
        self.scripts = 0
        self.title = ""
        self.h1 = ""
        self.tables = {}
        self._text, self._stack, self._row, self._cell = [], [], None, None
        self._table_id = None
        self.feed(source)
        self.close()
        self.text = normalise("".join(self._text))

    def handle_starttag(self, tag, attrs):
        attrs = dict(attrs)
        if "id" in attrs:
            self.ids.add(attrs["id"])
        if tag == "a" and "name" in attrs:
            self.ids.add(attrs["name"])
        if tag == "a" and "href" in attrs:
            self.links.append(attrs["href"])
        if tag == "link" and "href" in attrs:
            self.resources.append(attrs["href"])
        if "src" in attrs:
            self.resources.append(attrs["src"])
        if tag == "script":
            self.scripts += 1
        if tag == "table":
            self._table_id = attrs.get("id")
        if tag == "tr":
            self._row = []
        if tag in ("td", "th"):
            self._cell = []
        if tag in BLOCK_TAGS:
            self._text.append(" ")
        self._stack.append(tag)

    def handle_endtag(self, tag):
        if tag in ("td", "th") and self._row is not None and self._cell is not None:
            self._row.append(normalise("".join(self._cell)).strip())
            self._cell = None
        if tag == "tr" and self._row is not None:
            self.tables.setdefault(self._table_id, []).append(self._row)
            self._row = None
        if tag in BLOCK_TAGS:
            self._text.append(" ")
        if self._stack and self._stack[-1] == tag:
            self._stack.pop()

    def handle_data(self, data):
        current = self._stack[-1] if self._stack else ""
        if current == "title":
            self.title += data
        elif "h1" in self._stack:
            self.h1 += data
        self._text.append(data)
        if self._cell is not None:
            self._cell.append(data)


def normalise(text):
    """Collapses white space as a browser does; a no-break space stays a blank,
    so a message written with two blanks keeps them."""
    return re.sub(r"[ \t\r\n]+", " ", text).replace("\xa0", " ")


def sitemap_entries(text):
    """(name, local) pairs of a .hhc or .hhk file; local is None for a book."""
    entries = []
    for obj in re.findall(r'<OBJECT type="text/sitemap">(.*?)</OBJECT>', text, re.S | re.I):
        names = re.findall(r'<param name="Name" value="([^"]*)">', obj, re.I)
        locals_ = re.findall(r'<param name="Local" value="([^"]*)">', obj, re.I)
        entries.append((names[0] if names else "", locals_[0] if locals_ else None))
    return entries


def project_section(text, name):
    match = re.search(r"^\[" + name + r"\]\s*$(.*?)(?=^\[|\Z)", text, re.M | re.S)
    return [line.strip() for line in match.group(1).splitlines() if line.strip()] if match else []


class Checks:
    def __init__(self):
        self.passed = 0
        self.failed = 0

    def check(self, name, problems):
        problems = [p for p in problems if p]
        if problems:
            self.failed += 1
            print(f"FAIL {name}")
            for problem in problems[:20]:
                print(f"     {problem}")
            if len(problems) > 20:
                print(f"     ... and {len(problems) - 20} more")
        else:
            self.passed += 1
            print(f"ok   {name}")


def unpack(chm, folder):
    run = subprocess.run(["extract_chmLib", str(chm), str(folder)],
                         capture_output=True, text=True)
    return run.returncode, run.stdout + run.stderr


def read_text(path):
    return path.read_bytes().decode("cp1252")


def link_problems(origin, target, inside, pages):
    """Problems of one link from `origin`: the file must be inside, the anchor in it."""
    if re.match(r"(mailto:|https?:)", target):
        return None
    file_part, _, anchor = target.partition("#")
    file_part = file_part or origin
    if not (inside / file_part).is_file():
        return f"{origin}: link to {target}: {file_part} is not in the help file"
    if anchor and file_part in pages and anchor not in pages[file_part].ids:
        return f"{origin}: link to {target}: no anchor '{anchor}' in {file_part}"
    return None


def check_contents(checks, inside, source_files, page_names):
    missing = [f"{name} is not in the help file" for name in source_files
               if not (inside / name).is_file()]
    checks.check("every source file of docs/help is inside, with the contents and the index",
                 missing)
    differing = [f"{name} differs from docs/help/{name}" for name in source_files
                 if (inside / name).is_file()
                 and (inside / name).read_bytes() != (HELP_SOURCES / name).read_bytes()]
    checks.check("the files inside equal their sources", differing)

    project = read_text(HELP_SOURCES / PROJECT)
    listed = project_section(project, "FILES")
    checks.check("the project lists every page and the style sheet",
                 [f"{name} is not listed in {PROJECT}" for name in page_names + ["klickwerk.css"]
                  if name not in listed]
                 + [f"{PROJECT} lists {name}, which does not exist"
                    for name in listed if not (HELP_SOURCES / name).is_file()])
    options = dict(line.split("=", 1) for line in project_section(project, "OPTIONS"))
    checks.check("the project names the contents, the index and a default page inside",
                 [f"{key}={options.get(key)} is not inside" for key in
                  ("Contents file", "Index file", "Default topic")
                  if not options.get(key) or not (inside / options[key]).is_file()])


def check_links(checks, inside, pages):
    problems, external = [], []
    for name, page in pages.items():
        problems += [link_problems(name, link, inside, pages) for link in page.links]
        problems += [link_problems(name, res, inside, pages) or
                     (f"{name}: external resource {res}" if re.match(r"https?:", res) else None)
                     for res in page.resources]
        if page.scripts:
            external.append(f"{name} contains a script")
    checks.check("every link and resource of the pages leads to a file and anchor inside",
                 problems)
    checks.check("the pages contain no scripts", external)


def check_sitemaps(checks, inside, pages, page_names):
    toc = sitemap_entries(read_text(inside / TOC)) if (inside / TOC).is_file() else []
    index = sitemap_entries(read_text(inside / INDEX)) if (inside / INDEX).is_file() else []
    checks.check("the contents and the index have entries",
                 [f"{TOC} is empty" if not toc else None,
                  f"{INDEX} has only {len(index)} entries" if len(index) < 50 else None])
    checks.check("every entry of the contents leads to a page inside",
                 [link_problems(TOC, local, inside, pages) for _, local in toc if local])
    checks.check("every entry of the index leads to a page and anchor inside",
                 [link_problems(INDEX, local, inside, pages) for _, local in index if local]
                 + [f"{INDEX}: keyword '{name}' leads nowhere" for name, local in index
                    if not local])
    toc_pages = {local.partition("#")[0]: name for name, local in toc if local}
    checks.check("every page is in the contents under its own title",
                 [f"{name} is not in the contents" if name not in toc_pages else
                  (f"{name}: contents say '{toc_pages[name]}', page title is "
                   f"'{pages[name].title.strip()}'"
                   if name in pages and toc_pages[name] != pages[name].title.strip() else None)
                  for name in page_names])


def check_pages(checks, pages):
    checks.check("every page has a title, a heading equal to it and the style sheet",
                 [f"{name}: title '{page.title}', heading '{page.h1}'"
                  if not page.title.strip() or page.title.strip() != page.h1.strip() else
                  (f"{name} does not use klickwerk.css"
                   if "klickwerk.css" not in page.resources else None)
                  for name, page in pages.items()])
    checks.check("the program's texts are quoted exactly",
                 [f"{name} is not inside" for name in PROGRAM_TEXTS if name not in pages]
                 + [f"{name}: missing {text!r}" for name, texts in PROGRAM_TEXTS.items()
                    if name in pages for text in texts if text not in pages[name].text])
    rows = pages["keystroke_text.htm"].tables.get("table", []) \
        if "keystroke_text.htm" in pages else []
    letters = [(row[0], row[1]) for row in rows[1:] if len(row) >= 2]
    checks.check("the command-letter table holds all 19 letters with their keys",
                 [f"table has {letters}, expected {COMMAND_LETTERS}"
                  if letters != COMMAND_LETTERS else None]
                 + [f"row {row[0]}: press/release forms {row[2:4]}" for row in rows[1:18]
                    if row[2:4] != ["%" + row[0], "$" + row[0]]])
    checks.check("support address and web site appear on every page",
                 [f"{name} lacks them" for name, page in pages.items()
                  if "support@klickwerk.example" not in page.text
                  or "https://klickwerk.example/" not in page.links])


def first_run_problems(raw):
    """The example script in the exact line format of script files."""
    problems = []
    if not raw.endswith(b"\r\n") or raw.count(b"\n") != raw.count(b"\r\n"):
        problems.append("lines must all end with CR LF")
    if any(byte > 126 or (byte < 32 and byte not in (10, 13)) for byte in raw):
        problems.append("must be plain ASCII text, which reads the same in every ANSI code page")
    lines = raw.decode("cp1252").split("\r\n")[:-1]
    if not lines:
        problems.append("has no steps")
    steps = []
    for number, line in enumerate(lines, start=1):
        enabled, separator, rest = line.partition("|||")
        fields = rest.split("||")
        if not separator or enabled not in ("True", "False") or len(fields) != 8 \
                or any("|" in field for field in fields):
            problems.append(f"line {number} is not Enabled|||k||X||Y||Button||Additional"
                            f"||Mins||Secs||Repeat: {line!r}")
            continue
        k, x, y, button, additional, mins, secs, repeat = fields
        if k != str(number):
            problems.append(f"line {number} carries number {k}")
        if button not in CLICK_ACTIONS:
            problems.append(f"line {number}: unknown button {button!r}")
        if not all(re.fullmatch(r"-?\d+(\.\d+)?", value) for value in (x, y, mins, secs, repeat)):
            problems.append(f"line {number}: a number cell is not a number")
        if "True|||" in additional or "False|||" in additional or additional != additional.strip():
            problems.append(f"line {number}: keystroke text would not read back: {additional!r}")
        problems += keystroke_problems(number, additional)
        steps.append(fields)
    return problems, steps


def keystroke_problems(number, text):
    """A window command must be well formed; other text must release what it presses."""
    if "%win" in text:
        command, blank, title = text.partition(" ")
        if command not in WINDOW_COMMANDS or not blank or not title.split(";")[0] \
                or title.split(";")[0] != title.split(";")[0].rstrip():
            return [f"line {number}: malformed window command {text!r}"]
        return []
    unbalanced = [letter for letter, _ in COMMAND_LETTERS[:17]
                  if text.count("%" + letter) != text.count("$" + letter)]
    return [f"line {number}: {text!r} leaves keys down: {unbalanced}"] if unbalanced else []


def check_first_run(checks, pages):
    problems, steps = first_run_problems(FIRST_RUN.read_bytes())
    checks.check("Scripts/FirstRun.kwf is in the exact script line format", problems)
    welcome = pages.get("welcome.htm")
    explained = welcome.tables.get("firstrun-steps", []) if welcome else []
    rows = [row for row in explained[1:] if len(row) >= 6]
    described = [[row[0], row[1], row[2], row[3], row[4], row[5]] for row in rows]
    actual = [[k, x, y, button, additional, secs]
              for k, x, y, button, additional, mins, secs, repeat in steps]
    checks.check("the getting-started page explains the example script step by step",
                 [f"page describes {described}, script holds {actual}"
                  if described != actual else None])


def main():
    if len(sys.argv) != 2:
        print(__doc__.strip().splitlines()[2])
        return 2
    chm = pathlib.Path(sys.argv[1])
    checks = Checks()
    source_files = sorted(p.name for p in HELP_SOURCES.iterdir()
                          if p.is_file() and p.name != PROJECT)
    page_names = [name for name in source_files if name.endswith(".htm")]
    with tempfile.TemporaryDirectory() as folder:
        inside = pathlib.Path(folder) / "chm"
        code, output = unpack(chm, inside) if chm.is_file() else (1, f"{chm} does not exist")
        checks.check("extract_chmLib unpacks the help file",
                     [] if code == 0 else [f"exit code {code}: {output.strip()}"])
        pages = {name: Page(read_text(inside / name)) for name in page_names
                 if (inside / name).is_file()}
        check_contents(checks, inside, source_files, page_names)
        check_links(checks, inside, pages)
        check_sitemaps(checks, inside, pages, page_names)
        check_pages(checks, pages)
        check_first_run(checks, pages)
    print(f"{checks.passed} passed, {checks.failed} failed")
    return 1 if checks.failed else 0


if __name__ == "__main__":
    sys.exit(main())
