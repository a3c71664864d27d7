"""What a text dump says of its log; it shows every entry."""
import collections
import re

ENTRY = re.compile(r"^\S+Z,(\S+) [^=<>]*?(==>|-->|<--)(.*?)=(.*)$")
ACCESS = re.compile(r"^ACCESSOR .* element=(\w+) universal=(\w+) ")


class Dump:
    """Samples of each name as (time, text), and the order of everything."""

    def __init__(self, path):
        self.samples = collections.defaultdict(list)
        self.rows = []  # per cycle: its time and the latest text of each name
        self.universal_of = {}
        elements, latest, cycle = {}, {}, None
        for line in open(path, encoding="utf-8", errors="surrogateescape", newline="\n"):
            line = line.rstrip("\n")
            if line.startswith("ELEMENT "):
                _, code, name = line.split(" ", 2)
                elements[int(code, 16)] = name
            elif match := ACCESS.match(line):
                element, universal = (int(text, 16) for text in match.groups())
                if universal in elements:
                    self.universal_of[elements[element]] = elements[universal]
            elif line.endswith(" START_CYCLE"):
                if cycle is not None:
                    self.rows.append((cycle, dict(latest)))
                cycle = float(line.split()[0].split(",")[1])
            elif match := ENTRY.match(line):
                time, arrow, name, text = match.groups()
                for known in [name] + [self.universal_of.get(name)] * (arrow == "==>"):
                    if known:
                        self.samples[known].append((float(time), text))
                        latest[known] = text
        self.rows.append((cycle, dict(latest)))
