"""batches.py OUT NAME TOP LINES SOURCE...: writes few translation units OUT/NAME_<n>.cpp that include the SOURCEs, and
prints their paths. Run by CMake, anew when a source changes.

Files share a unit only when no name that is local to one of them (anonymous namespace, static, macro) stands anywhere in
another: so none can collide, shadow, or win a call that means another function. A unit has at most LINES lines of source,
unless a single file has more. Includes are relative to TOP, so that ccache finds a unit from another folder again.
"""
import os
import re
import sys

# What is not code; and a literal stays a literal, so that a name in it counts for nothing.
NO_CODE = re.compile(r'//[^\n]*|/\*.*?\*/|R"(\w*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])+\'', re.S)
WORD = re.compile(r'[A-Za-z_]\w*')
DECLARED = re.compile(r'([A-Za-z_]\w*)\s*(?:[=({;\[]|:(?!:))')
TYPE = re.compile(r'\b(?:class|struct|union|enum)\s+(?:class\s+)?(\w+)[^;{=()]*\{')
NO_NAME = set('TEST TEST_F TEST_P INSTANTIATE_TEST_SUITE_P void struct enum union static_assert operator'.split())
VALUE = re.compile(r'=[^;{]*')
MACRO = re.compile(r'^\s*#\s*define\s+(\w+)', re.M)
STATIC = re.compile(r'^static\b[^;={(]*?(\w+)\s*[=({;\[]', re.M)


def outermost(text, begin):
    """The text from behind the brace at `begin` to its match, without what inner braces enclose; and where it ends."""
    depth, kept, i = 1, [], begin + 1
    while i < len(text) and depth:
        c = text[i]
        depth += (c == '{') - (c == '}')
        if depth == 1 or (depth == 2 and c == '{'):
            kept.append(c)
        i += 1
    return ''.join(kept), i


def local_names(code):
    """Names that only this file may mean; rather too many than too few."""
    names = set(MACRO.findall(code)) | set(STATIC.findall(code))
    for found in re.finditer(r'\bnamespace\s*\{', code):
        body, _ = outermost(code, found.end() - 1)
        names.update(DECLARED.findall(VALUE.sub('=', TYPE.sub(r'\1{', re.sub(r'\([^()]*\)', '(', body)))))
    return names - NO_NAME


class Source:
    def __init__(self, path):
        self.path = path
        with open(path, encoding='utf-8') as file:
            text = file.read()
        code = NO_CODE.sub(' ', text)
        self.lines = text.count('\n')
        self.words = set(WORD.findall(code))
        self.names = local_names(code)


class Batch:
    def __init__(self):
        self.sources, self.lines, self.words, self.names = [], 0, set(), set()

    def takes(self, source, limit):
        return (self.lines + source.lines <= limit and self.names.isdisjoint(source.words)
                and self.words.isdisjoint(source.names))

    def add(self, source):
        self.sources.append(source)
        self.lines += source.lines
        self.words |= source.words
        self.names |= source.names


def batches_of(sources, limit):
    """Neighbours first: they include the same headers."""
    batches = []
    for source in sources:
        batch = next((b for b in batches if b.takes(source, limit)), None)
        if batch is None:
            batches.append(batch := Batch())
        batch.add(source)
    return batches


def write_if_new(path, text):
    """An old file stays as old as it is, and is not compiled again."""
    if os.path.exists(path):
        with open(path, encoding='utf-8') as file:
            if file.read() == text:
                return
    with open(path, 'w', encoding='utf-8') as file:
        file.write(text)


def main():
    out, name, top, limit, *paths = sys.argv[1:]
    os.makedirs(out, exist_ok=True)
    sources = [Source(path) for path in sorted(paths)]
    for n, batch in enumerate(batches_of(sources, int(limit))):
        path = os.path.join(out, f'{name}_{n}.cpp')
        write_if_new(path, ''.join(f'#include "{os.path.relpath(s.path, top)}"\n' for s in batch.sources))
        print(path)


if __name__ == '__main__':
    main()
