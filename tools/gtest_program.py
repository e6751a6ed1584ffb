"""Runs one GoogleTest program and counts its tests. A test that passes is not heard; one that fails is printed whole; one
that hangs is named and ended, and what is left of its program with it."""
import os
import re
import selectors
import signal
import subprocess
import time

# A test that takes longer hangs (seconds); the slowest takes about ten on a quiet machine.
TEST_LIMIT = 300

BEGIN = re.compile(r'^\[ RUN      \] (\S+)')
# Text that a test wrote without a line's end may stand in front.
END = re.compile(r'\[ +(OK|FAILED|SKIPPED) +\] (\S+?)(,.*)? \(\d+ ms\)$')
CHOSEN = re.compile(r'^\[==========\] Running (\d+) tests?')


class Lines:
    """Lines of a pipe, each waited for until a point in time."""

    def __init__(self, pipe):
        self.pipe, self.rest, self.open = pipe, b'', True
        self.selector = selectors.DefaultSelector()
        self.selector.register(pipe, selectors.EVENT_READ)

    def next(self, until):
        """The next line; None at the end; TimeoutError when the time has come."""
        while b'\n' not in self.rest and self.open:
            if not self.selector.select(max(0, until - time.monotonic())):
                raise TimeoutError
            data = os.read(self.pipe.fileno(), 65536)
            self.open = bool(data)
            self.rest += data
        if not self.rest:
            return None
        line, _, self.rest = self.rest.partition(b'\n')
        return line.decode('utf-8', 'replace')


def run_program(argv, env, name, limit=TEST_LIMIT):
    """(passed, failed). What goes wrong beside the tests, a crash, a sanitizer's report, a test that never came to its turn,
    is one failure more. `name` is for the failures."""
    process = subprocess.Popen(argv, env=env, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                               start_new_session=True)
    lines, kept = Lines(process.stdout), []
    passed = failed = 0
    chosen, running, hung = None, None, False
    until = time.monotonic() + limit
    try:
        while (line := lines.next(until)) is not None:
            if found := CHOSEN.match(line):
                chosen = int(found[1])
            if found := BEGIN.match(line):
                running, kept, until = found[1], [], time.monotonic() + limit
            kept.append(line)
            if (found := END.search(line)) and found[2] == running:
                if found[1] == 'FAILED':
                    failed += 1
                    print('\n'.join(kept[1:-1]) + f'\nFAILED: {running} ({name})', flush=True)
                else:
                    passed += found[1] == 'OK'
                    chosen -= found[1] == 'SKIPPED'
                running, kept, until = None, [], time.monotonic() + limit
    except TimeoutError:
        hung = True
    if hung:
        os.killpg(process.pid, signal.SIGKILL)
    code = process.wait()
    process.stdout.close()
    if hung or running:
        what = f'hangs: no end within {limit} s' if hung else f'ended its program with {code}'
        print('\n'.join(kept[1:]) + f'\nFAILED: {running or "the program, in no test,"} ({name}) {what}', flush=True)
        failed += 1
    elif chosen is None or passed + failed < chosen or (code != 0 and failed == 0):
        print('\n'.join(kept) + f'\nFAILED: {name} ended with {code} after {passed + failed} of {chosen or "unknown"} tests',
              flush=True)
        failed += 1
    return passed, failed
