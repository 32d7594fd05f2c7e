"""The mutants: small faults made in copies of the sources.

The generated ones are chosen by a hash of what they change, so that a change of a source changes
the choice in that place alone; each file gets its share by its size, each operator its turn. The
named ones stand in named.txt, those that no test can tell from the program in explained.txt. Both
are lists of blocks, "# NAME OR REASON", the file, lines to be replaced with "-" in front of them,
and the lines that replace them with "+".
"""

import dataclasses
import hashlib
import pathlib
import re

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent
FRONT_END = ("ui", "platform_wx")
CORE = ("setup", "edit", "data", "charts", "app", "install", "export", "platform", "library", "cli")

# Sources of the other system, and texts alone.
LEFT_OUT = re.compile(r"(Windows|Msw|Quotations)\.cpp$")


@dataclasses.dataclass(frozen=True)
class Mutant:
    file: str  # from the root of the tree
    operator: str
    old: str  # the whole line, or several lines of a named mutant
    new: str
    start: int  # where `old` begins in the file
    nth: int = 1  # among those of the file that are alike

    def text(self):
        """The file with the fault in it."""
        text = (ROOT / self.file).read_text()
        return text[:self.start] + self.new + text[self.start + len(self.old):]

    def key(self):
        return hashlib.sha256(self.text().encode()).hexdigest()[:16]

    def place(self):
        return f"{self.file}:{(ROOT / self.file).read_text().count(chr(10), 0, self.start) + 1}"


class Stale(Exception):
    """A table names lines that are not there any more."""


def code_of(text):
    """The text with all that is not code of this system as blanks."""
    blank = lambda match: re.sub(r"[^\n]", " ", match.group())
    literal = lambda match: '"' + "_" * (len(match.group()) - 2) + '"'
    text = re.sub(r'\bR"(\w*)\(.*?\)\1"', blank, text, flags=re.S)
    tokens = re.compile(r'//[^\n]*|/\*.*?\*/|("(?:\\.|[^"\\\n])*"|(?<![0-9a-fA-F])\'(?:\\.|[^\'\\\n])+\')', re.S)
    text = tokens.sub(lambda match: literal(match) if match.group(1) else blank(match), text)
    lines, other = [], []
    for line in text.split("\n"):
        word = re.match(r"\s*#\s*(ifdef|ifndef|if|else|endif)\b\s*(\w*)", line)
        if word:
            of_windows = word[2] in ("_WIN32", "__WXMSW__")
            if word[1].startswith("if"):
                other.append(of_windows if word[1] == "ifdef" else None if not of_windows else False)
            elif word[1] == "else" and other[-1] is not None:
                other[-1] = not other[-1]
            elif word[1] == "endif":
                other.pop()
        hidden = any(other) or line.lstrip().startswith("#")
        lines.append(" " * len(line) if hidden else line)
    return "\n".join(lines)


def closing(code, at):
    """Where the bracket that opens at `at` is closed; -1 beyond the line."""
    depth = 0
    for i in range(at, len(code)):
        depth += {"(": 1, ")": -1}.get(code[i], 0)
        if depth == 0:
            return i
    return -1


SWAPS = [  # operator, pattern, replacements
    ("comparison", r"(?<= )==(?= )", ["!="]),
    ("comparison", r"(?<= )!=(?= )", ["=="]),
    ("boundary", r"(?<= )<(?= )", ["<="]),
    ("boundary", r"(?<= )>(?= )", [">="]),
    ("boundary", r"(?<= )<=(?= )", ["<"]),
    ("boundary", r"(?<= )>=(?= )", [">"]),
    ("comparison", r"(?<= )<=?(?= )", [">"]),
    ("comparison", r"(?<= )>=?(?= )", ["<"]),
    ("arithmetic", r"(?<=[^\"'] )\+(?= [^\"'])", ["-"]),
    ("arithmetic", r"(?<= )-(?= )", ["+"]),
    ("arithmetic", r"(?<= )\*(?= )", ["/"]),
    ("arithmetic", r"(?<= )/(?= )", ["*"]),
    ("arithmetic", r"(?<= )\+=(?= )", ["-="]),
    ("arithmetic", r"(?<= )-=(?= )", ["+="]),
    ("truth", r"\btrue\b", ["false"]),
    ("truth", r"\bfalse\b", ["true"]),
    ("and-or", r"(?<= )&&(?= )", ["||"]),
    ("and-or", r"(?<= )\|\|(?= )", ["&&"]),
]


def changed_lines(code):
    """(operator, new line) of one line of code, as yet with its literals blanked: spans to replace."""
    for operator, pattern, replacements in SWAPS:
        for match in re.finditer(pattern, code):
            for replacement in replacements:
                yield operator, match.span(), replacement
    for match in re.finditer(r"(?<![\w.'])\d+(?![\w.'])", code):
        if "template" in code or ".place" in code:
            continue  # places of controls are a matter of taste
        number = int(match.group())
        yield "constant", match.span(), str(number + 1)
        if number > 0:
            yield "constant", match.span(), str(number - 1)
    for match in re.finditer(r"\b(?:if|while) \(", code):
        end = closing(code, match.end() - 1)
        inside = code[match.end():end]
        if end > 0 and ";" not in inside and not re.match(r"(const )?(auto|Error|int)\b", inside):
            yield "negation", (match.end(), end), None
    simple = r"[a-z_][\w.]*(?:\(\))?"
    for match in re.finditer(rf"(?<=[\w>])\(({simple}), ({simple})(?=[,)])", code):
        either_way = re.search(r"\bstd::(min|max)$", code[:match.start()])
        if match[1] != match[2] and not either_way:
            yield "arguments", match.span(1), None
    match = re.match(r"\s*(?:else )?return (?!(?:\{\}|true|false|0|nullptr|std::nullopt);)(.+);$", code)
    if match:
        yield "return", match.span(1), "{}"
    statement = re.match(r"\s+(?!return\b|const\b|auto\b|case\b|default\b|using\b|break\b|struct\b"
                         r"|static|explicit|virtual|else\b|for\b|while\b|do\b|\})"
                         r"(?:if \(.*\) .+;|\(void\).+;|(?:[\w\->.:\[\]]+|\*\w+)(?:\(.*\)| [-+*|&]?= .+);|(?:\+\+|--)\w+;)$",
                         code)
    if statement and code.count("(") == code.count(")") and code.count("{") == code.count("}"):
        yield "removal", (len(code) - len(code.lstrip()), len(code)), ";"


def candidates(file):
    """All mutants of a file."""
    text = (ROOT / file).read_text()
    code = code_of(text)
    count, start = {}, 0
    before = ";"
    for line, bare in zip(text.split("\n"), code.split("\n")):
        whole = not before or before[-1] in ";{}:"  # no statement goes on here
        for operator, (begin, end), replacement in changed_lines(bare):
            if operator == "removal" and not whole:
                continue
            if operator == "negation":
                replacement = "!(" + line[begin:end] + ")"
            elif operator == "arguments":
                rest = re.compile(r", ([a-z_][\w.]*(?:\(\))?)").match(line, end)
                new = line[:begin] + rest[1] + ", " + line[begin:end] + line[rest.end():]
                replacement = None
            if replacement is not None:
                new = line[:begin] + replacement + line[end:]
            pair = (line.strip(), new.strip())
            count[pair] = count.get(pair, 0) + 1
            yield Mutant(file, operator, line, new, start, count[pair])
        start += len(line) + 1
        before = bare.rstrip() or before


def chosen(folders, number):
    """So many of all that there are, the same at each call."""
    files = [str(path.relative_to(ROOT)) for folder in folders
             for path in sorted((ROOT / "src" / folder).glob("*.cpp"))
             if not LEFT_OUT.search(path.name)]
    sizes = {file: len((ROOT / file).read_text().split("\n")) for file in files}
    picked = []
    for file in files:
        by_operator = {}
        for mutant in candidates(file):
            mark = f"{file}|{mutant.old.strip()}|{mutant.new.strip()}|{mutant.nth}"
            order = hashlib.sha256(mark.encode()).hexdigest()
            by_operator.setdefault(mutant.operator, []).append((order, mutant))
        turns = sorted(sorted(found) for found in by_operator.values())
        ranked = sorted((turn, order, mutant.new, mutant) for found in turns
                        for turn, (order, mutant) in enumerate(found))
        share = max(1, round(number * sizes[file] / sum(sizes.values())))
        picked += [entry[-1] for entry in ranked[:share]]
    return picked


def blocks(name):
    """(words, file, old, new) of each block of a table."""
    for block in re.split(r"\n\s*\n", (HERE / name).read_text().strip("\n")):
        lines = block.split("\n")
        words = " ".join(line[1:].strip() for line in lines if line.startswith("#"))
        file = [line for line in lines if line[:1] not in "#-+"]
        old = "\n".join(line[1:] for line in lines if line.startswith("-"))
        new = "\n".join(line[1:] for line in lines if line.startswith("+"))
        if file:
            yield words, file[0], old, new


def named():
    mutants = []
    for name, file, old, new in blocks("named.txt"):
        text = (ROOT / file).read_text()
        if text.count(old) != 1 or not old:
            raise Stale(f"named.txt: \"{name}\" is {text.count(old)} times in {file}")
        mutants.append(Mutant(file, name, old, new, text.index(old)))
    return mutants


def explained():
    """Why no test can tell a mutant from the program, by its file and lines."""
    reasons = {}
    for reason, file, old, new in blocks("explained.txt"):
        known = {(mutant.old.strip(), mutant.new.strip()) for mutant in candidates(file)}
        if not reason or (old.strip(), new.strip()) not in known:
            raise Stale(f"explained.txt: {file} has no such mutant: {old.strip()}")
        reasons[file, old.strip(), new.strip()] = reason
    return reasons


def is_explained(mutant, reasons):
    return (mutant.file, mutant.old.strip(), mutant.new.strip()) in reasons
