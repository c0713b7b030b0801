"""The places of src at which a hand may slip, and the small faults that it makes there."""

import collections
import pathlib
import random
import re

ROOT = pathlib.Path(__file__).resolve().parent.parent
DROPPED = "(dropped)"

Mutant = collections.namedtuple("Mutant", "file line kind old new")

TOKENS = re.compile(
    r'//[^\n]*|/\*.*?\*/|R"(?P<mark>[^(]*)\(.*?\)(?P=mark)"|"(?:\\.|[^"\\\n])*"'
    r"|(?<![0-9a-fA-F])'(?:\\.|[^'\\\n])+'|^[ \t]*#(?:\\\n|[^\n])*",
    re.DOTALL | re.MULTILINE,
)
NOT_HERE = re.compile(r"^[ \t]*#[ \t]*if[^\n]*(?:_WIN32|_MSC_VER).*?^[ \t]*#[ \t]*(?:else|endif)",
                      re.DOTALL | re.MULTILINE)


def code_of(text):
    """The text with comments, literals and what only Windows compiles blanked, of the same length;
    of a literal the quotes stay, so that an argument is still one."""
    def blank(match):
        inside = re.sub(r"[^\n]", " ", match.group(0))
        is_literal = match.group(0)[0] in "\"'R" and match.group(0)[-1] in "\"'"
        return '"' + inside[1:-1] + '"' if is_literal else inside
    return TOKENS.sub(blank, NOT_HERE.sub(blank, text))


def closing(code, start):
    """Index of the bracket that closes the one at `start`; -1 where there is none."""
    depth = 0
    for index in range(start, len(code)):
        depth += (code[index] in "([{") - (code[index] in ")]}")
        if depth == 0:
            return index
    return -1


def split_at(code, begin, end, mark):
    """The stretches of [begin, end) between the marks that stand in no bracket of their own."""
    parts, depth = [], 0
    for index in range(begin, end):
        depth += (code[index] in "([{") - (code[index] in ")]}")
        if depth == 0 and code[index] == mark:
            parts.append((begin, index))
            begin = index + 1
    return parts + [(begin, end)]


COMPARISONS = {" < ": (" <= ", " >= "), " <= ": (" < ", " > "), " > ": (" >= ", " <= "),
               " >= ": (" > ", " < "), " == ": (" != ",), " != ": (" == ",)}
SIMPLE = re.compile(r"(?:\+\+|--|\*)?(?!return\b|delete\b|throw\b|using\b|goto\b)[\w:.\[\]>()-]+"
                    r"(?:\(.*\)| (?:[-+*/|&^%]|<<|>>)?= .*|\+\+|--|)", re.DOTALL)
# Which of the two comes first makes no difference.
SYMMETRICAL = re.compile(r"\bstd::(?:min|max|hypot)(?:<[^<>]*>)?$")
PARAMETER = re.compile(r"\s*(?:const )?[\w:]+(?:<.*>)?(?: ?[&*]+ ?| )\w+\s*(?:=.*)?", re.DOTALL)
DECLARATION = re.compile(r"\s*(?:const )?[\w:]+(?:<[^=]*>)?(?: ?[&*] ?|[&*]? )\w+ = ", re.DOTALL)


def operators(text, code):
    for match in re.finditer(r"(?<=[^ ]) (?:[<>]=?|[=!]=) (?=[^ ])", code):
        for new in COMPARISONS[match.group(0)]:
            yield "comparison", match.start(), match.end(), new
    for match in re.finditer(r" (?:&&|\|\|)(?=\s)", code):
        yield "and/or", match.start() + 1, match.end(), "||" if "&" in match.group(0) else "&&"
    for match in re.finditer(r"(?<![\w.'])(?:0|[1-9]\d{0,8})(?=u?(?![\w.']))", code):
        value = int(match.group(0))
        for new in (value + 1, value - 1) if value else (1,):
            yield "constant", match.start(), match.end(), str(new)


def conditions(text, code):
    for match in re.finditer(r"\b(if|while) (\()", code):
        end = closing(code, match.start(2))
        begin = split_at(code, match.end(), end, ";")[-1][0]
        condition = text[begin:end].strip()
        if DECLARATION.match(code[begin:end]):
            name = code[begin:end].split(" = ")[0].split()[-1].strip("&*")
            yield "negation", begin, end, f"{condition}; !{name}"
            continue
        lead = "" if begin == match.end() else " "
        yield "negation", begin, end, f"{lead}!({condition})"
        if match.group(1) == "if":
            yield "condition dropped", begin, end, lead + "true"
            yield "condition dropped", begin, end, lead + "false"


def depend(one, other):
    """Whether two statements have anything to do with one another, so that their order may count."""
    changed = re.compile(r"[\w.]+(?= [-+*/|&^%]?= )|(?<=\+\+)\w+|^\*?\w+")
    return one != other and any(re.search(rf"\b{re.escape(name)}\b", b)
                                for a, b in ((one, other), (other, one))
                                for name in changed.findall(a))


def statements(text, code):
    """Simple statements to leave out, and pairs of them to swap."""
    former, begin = None, 0
    for index, char in enumerate(code):
        if char not in ";{}" and not (char == ":" and re.search(r"\b(?:case [^\n]*|default)$",
                                                                code[begin:index])):
            continue
        words = code[begin:index].strip()
        start = begin + len(code[begin:index]) - len(code[begin:index].lstrip())
        inside = code.count("(", begin, index) == code.count(")", begin, index)
        begin = index + 1
        if char != ";" or not inside:
            former = None
            continue
        if early := re.match(r"(?:else )?if \(", words):
            body = closing(code, start + early.end() - 1) + 1
            if re.match(r"return\b|continue\b|break\b", code[body:index].strip()):
                yield "statement dropped", start, index + 1, ""
            former = None
        elif SIMPLE.fullmatch(words) and re.search(r"[(=+-]|^break$|^continue$", words):
            if not re.match(r"break|continue", words):
                if former and depend(code[former[0]:former[1]], code[start:index + 1]):
                    between = text[former[1]:start]
                    yield ("statements swapped", former[0], index + 1,
                           text[start:index + 1] + between + text[former[0]:former[1]])
                former = start, index + 1
            yield "statement dropped", start, index + 1, ""
        else:
            former = None


def arguments(text, code):
    for match in re.finditer(r"(?<=[\w>])\(", code):
        if SYMMETRICAL.search(code[:match.start()][-40:]):
            continue
        end = closing(code, match.start())
        parts = split_at(code, match.end(), end, ",")
        if len(parts) < 2 or any(PARAMETER.fullmatch(code[a:b]) for a, b in parts):
            continue
        for (a, b), (c, d) in zip(parts, parts[1:]):
            one, other = text[a:b].strip(), text[c:d].strip()
            if one != other:
                lead = text[a:b][: len(text[a:b]) - len(text[a:b].lstrip())]
                yield "arguments swapped", a, d, f"{lead}{other}, {one}"


def mutants_of(file):
    """All changes of a file, by the line they begin in."""
    text = (ROOT / file).read_text(encoding="utf-8")
    code = code_of(text)
    lines = collections.defaultdict(list)
    for maker in (operators, conditions, statements, arguments):
        for kind, begin, end, new in maker(text, code):
            if text[begin:end].strip() == "" or "\n\n" in text[begin:end].strip():
                continue
            first = text.rfind("\n", 0, begin) + 1
            last = text.find("\n", end)
            line = text.count("\n", 0, begin) + 1
            lines[line].append(Mutant(file, line, kind, text[first:last],
                                      text[first:begin] + new + text[end:last]))
    return lines


def drawn(seed, folders):
    """All places in the order of the seed: of each line one kind of change, then one of that kind."""
    chance = random.Random(seed)
    places = []
    for path in sorted((ROOT / "src").rglob("*")):
        file = str(path.relative_to(ROOT))
        if path.suffix not in (".cpp", ".h") or "/windows/" in file:
            continue
        if not folders or folder_of(file) in folders:
            places += [found for _, found in sorted(mutants_of(file).items())]
    chance.shuffle(places)
    for place in places:
        kind = chance.choice(sorted({mutant.kind for mutant in place}))
        yield chance.choice([mutant for mutant in place if mutant.kind == kind])


def folder_of(file):
    parts = file.split("/")[1:-1]
    return "/".join(parts[:2]) if parts[1:2] == ["widgets"] else parts[0]


def words_of(text):
    return " ".join(text.split()) or DROPPED
