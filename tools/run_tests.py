"""Builds and runs the groups of tests and adds up what they say. Run by ./test, which installs what this needs.

The browser group mostly waits: where two cores allow it, it runs beside the others and their builds, which give way to it,
and its lines follow at the end. Its build, which is the quick one, comes first.
"""
import os
import re
import subprocess
import sys
import threading
import time

from gtest_program import run_program

TOP = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
OUT = os.path.join(TOP, 'build-results')
# What hangs is a failure, not a reason to wait for ever (seconds). Tests have limits of their own, and name themselves.
BUILD_LIMIT = 3600
CHECK_LIMIT = 300
BROWSER_LIMIT = 2700

TEST_ENV = {
    'ASAN_OPTIONS': 'detect_stack_use_after_return=0:abort_on_error=0',
    'UBSAN_OPTIONS': 'print_stacktrace=1',
    'TSAN_OPTIONS': 'halt_on_error=0',
}

browser_runs = threading.Event()


def environment(**more):
    full = dict(os.environ, MIRL_QUIET='1', **more)
    full.pop('EVENTLOG_LEVEL', None)  # tests look at the log
    return full


def run(argv, limit, cwd=TOP):
    """Its exit code; 124 when it took too long."""
    try:
        return subprocess.run(argv, cwd=cwd, env=environment(), stdin=subprocess.DEVNULL, timeout=limit).returncode
    except subprocess.TimeoutExpired:
        print(f'error: {" ".join(argv)} did not end within {limit} s')
        return 124


def build(kind, targets):
    polite = ['nice', '-n', '15'] if browser_runs.is_set() else []
    begin = time.monotonic()
    good = run([*polite, os.path.join(TOP, 'tools', 'build'), kind, *targets], BUILD_LIMIT) == 0
    if good:
        print(f'built: {kind}, {time.monotonic() - begin:.0f} s', flush=True)
    else:
        print(f'FAILED: build {kind}', flush=True)
    return good


def group_gtest(kind, programs, extra=()):
    def job():
        if not build(kind, programs):
            return 0, 1
        counts = [run_program([os.path.join(TOP, f'build-{kind}', 'tests', program), *extra], environment(**TEST_ENV),
                              f'{program}, {kind}') for program in programs]
        return sum(p for p, _ in counts), sum(f for _, f in counts)
    return job


def group_checks():
    """Each check is a program in tools/check that prints what is wrong and ends with 1 if anything is."""
    folder = os.path.join(TOP, 'tools', 'check')
    passed = failed = 0
    for name in sorted(os.listdir(folder)):
        path = os.path.join(folder, name)
        if not os.access(path, os.X_OK) or os.path.isdir(path):
            continue
        if run([path], CHECK_LIMIT) == 0:
            passed += 1
        else:
            print(f'FAILED: check {name}')
            failed += 1
    return passed, failed


def prepare_browser():
    folder = os.path.join(TOP, 'tests', 'browser')
    if not build('release', ['mirl', 'zeqd', 'zeqctl', 'docroot', 'gallery', 'bound_gallery']):
        return False
    installed = os.path.join(folder, 'node_modules', '.package-lock.json')
    if not os.path.isfile(installed) or os.path.getmtime(installed) < os.path.getmtime(os.path.join(folder, 'package-lock.json')):
        if run(['npm', 'ci', '--silent', '--no-audit', '--no-fund'], CHECK_LIMIT, cwd=folder) != 0:
            print('FAILED: npm ci in tests/browser')
            return False
    return True


def run_browser(write):
    """Hands every line on as it comes; (passed, failed)."""
    process = subprocess.Popen(['node', 'run.mjs'], cwd=os.path.join(TOP, 'tests', 'browser'), env=environment(), text=True,
                               stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    late = threading.Timer(BROWSER_LIMIT, process.terminate)
    late.start()
    found = None
    for line in process.stdout:
        write(line)
        found = re.match(r'browser: (\d+) passed, (\d+) failed$', line) or found
    code = process.wait()
    late.cancel()
    if not found:
        write(f'FAILED: browser tests ended with {code} and no result\n')
        return 0, 1
    return int(found[1]), int(found[2])


def write_now(line):
    sys.stdout.write(line)
    sys.stdout.flush()


def group_browser():
    return run_browser(write_now) if prepare_browser() else (0, 1)


# Suites in which threads meet: connections, sessions, their mailboxes and channels.
THREADED = ('AccessLog*:AddressCounter*:Channel*:DeadlineTest*:Http*:Mailbox*:Multipart*:Page.*:Request*:ResourceTest*:'
            'ServerConfig*:SessionRegistry*:StaticFiles*:TlsTest*:UpdateLock*')

GROUPS = {
    'checks': ('style, include directions, message keys, registration, this program', group_checks),
    'unit': ('unit tests under ASan and UBSan', group_gtest('asan', ['toolkit_tests', 'platform_tests', 'app_tests', 'fuzz_tests'])),
    'db': ('tests against a running database service under ASan and UBSan', group_gtest('asan', ['platform_dbtests', 'app_dbtests'])),
    'threads': ('server tests under TSan', group_gtest('tsan', ['toolkit_tests'], ['--gtest_filter=' + THREADED])),
    'browser': ('a real browser against the release build', group_browser),
}


class BrowserBeside:
    """The browser group while others run. Its lines are in build-results/browser.log meanwhile."""

    def __init__(self):
        self.path = os.path.join(OUT, 'browser.log')
        self.begin, self.seconds, self.result = time.monotonic(), 0, (0, 1)
        self.ready = prepare_browser()
        self.thread = threading.Thread(target=self.work)
        if self.ready:
            print(f'browser tests begin; until the others are through their lines are in {self.path}', flush=True)
            browser_runs.set()
            self.thread.start()

    def work(self):
        with open(self.path, 'w', encoding='utf-8', buffering=1) as log:
            self.result = run_browser(log.write)
        browser_runs.clear()
        self.seconds = time.monotonic() - self.begin

    def finish(self):
        if self.ready:
            self.thread.join()
            with open(self.path, encoding='utf-8') as log:
                write_now(log.read())
        return self.result


def run_group(name, job):
    """Prints the group's head and its counts."""
    print(f'== {name}: {GROUPS[name][0]}', flush=True)
    begin = time.monotonic()
    passed, failed = job()
    print(f'== {name}: {passed} passed, {failed} failed, {time.monotonic() - begin:.0f} s', flush=True)
    return passed, failed


def main():
    wanted = sys.argv[1:]
    if '--list' in wanted:
        for name, (what, _) in GROUPS.items():
            print(f'{name:10} {what}')
        return 0
    unknown = [w for w in wanted if w not in GROUPS]
    if unknown:
        print(f"error: group {' '.join(unknown)} unknown; use {' '.join(GROUPS)}")
        return 2
    os.makedirs(OUT, exist_ok=True)
    begin = time.monotonic()
    names = list(dict.fromkeys(wanted)) or list(GROUPS)
    jobs = {name: GROUPS[name][1] for name in names}
    if 'browser' in names and len(names) > 1 and len(os.sched_getaffinity(0)) > 1:
        beside = BrowserBeside()
        del jobs['browser']
        jobs['browser'] = beside.finish
    counts = [run_group(name, job) for name, job in jobs.items()]
    passed, failed = sum(p for p, _ in counts), sum(f for _, f in counts)
    print(f'all of it took {time.monotonic() - begin:.0f} s')
    print(f'{passed} passed, {failed} failed')
    return 1 if failed or not passed else 0


if __name__ == '__main__':
    sys.exit(main())
