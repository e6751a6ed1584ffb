"""Builds and runs the groups of tests and adds up what they say. Run by ./test, which installs what this needs."""
import json
import os
import re
import subprocess
import sys
import time

TOP = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
OUT = os.path.join(TOP, 'build-results')
# A group that hangs is a failure, not a reason to wait for ever (seconds).
GROUP_LIMIT = 1500

ASAN_ENV = {
    'ASAN_OPTIONS': 'detect_stack_use_after_return=0:abort_on_error=0',
    'UBSAN_OPTIONS': 'print_stacktrace=1',
    'TSAN_OPTIONS': 'halt_on_error=0',
}


def run(argv, env=None, cwd=TOP):
    full = dict(os.environ, **(env or {}))
    full.pop('EVENTLOG_LEVEL', None)  # tests look at the log
    try:
        return subprocess.run(argv, cwd=cwd, env=full, stdin=subprocess.DEVNULL, timeout=GROUP_LIMIT).returncode
    except subprocess.TimeoutExpired:
        print(f'error: {argv[0]} did not end within {GROUP_LIMIT} s')
        return 124


def build(kind, targets):
    return run([os.path.join(TOP, 'tools', 'build'), kind] + targets) == 0


def targets_of(kind, names):
    """Those of the test programs that this tree has sources for."""
    probe = subprocess.run(['ninja', '-C', os.path.join(TOP, f'build-{kind}'), '-t', 'targets', 'all'],
                           capture_output=True, text=True)
    have = set(re.findall(r'^([\w-]+): phony', probe.stdout, re.M))
    return [n for n in names if n in have]


def gtest(kind, program, extra=()):
    """Runs one GoogleTest program; (passed, failed). A crash counts as one failure more."""
    report = os.path.join(OUT, f'{kind}-{program}.json')
    if os.path.exists(report):
        os.remove(report)
    code = run([os.path.join(TOP, f'build-{kind}', 'tests', program), '--gtest_brief=1', f'--gtest_output=json:{report}',
                *extra], ASAN_ENV)
    if not os.path.exists(report):
        print(f'FAILED: {program} ({kind}) ended with {code} and left no report')
        return 0, 1
    result = json.load(open(report, encoding='utf-8'))
    passed = result['tests'] - result['failures'] - result['disabled'] - result['errors']
    failed = result['failures'] + result['errors']
    if code != 0 and failed == 0:
        print(f'FAILED: {program} ({kind}) ended with {code}: a sanitizer or a crash')
        failed = 1
    return passed, failed


def group_gtest(kind, programs, extra=(), targets=()):
    """`targets`: what to build for it; none: everything."""
    def job():
        if not build(kind, list(targets)):
            return 0, 1
        passed = failed = 0
        for program in targets_of(kind, programs):
            p, f = gtest(kind, program, extra)
            passed, failed = passed + p, failed + f
        return passed, failed
    return job


def group_checks():
    """Each check is a program in tools/check that prints what is wrong and ends with 1 if anything is."""
    folder = os.path.join(TOP, 'tools', 'check')
    passed = failed = 0
    for name in sorted(os.listdir(folder)):
        path = os.path.join(folder, name)
        if not os.access(path, os.X_OK) or os.path.isdir(path):
            continue
        if run([path]) == 0:
            passed += 1
        else:
            print(f'FAILED: check {name}')
            failed += 1
    return passed, failed


def group_browser():
    folder = os.path.join(TOP, 'tests', 'browser')
    if not build('release', ['mirl', 'zeqd', 'zeqctl', 'docroot', 'gallery', 'bound_gallery']):
        return 0, 1
    installed = os.path.join(folder, 'node_modules', '.package-lock.json')
    if not os.path.isfile(installed) or os.path.getmtime(installed) < os.path.getmtime(os.path.join(folder, 'package-lock.json')):
        if run(['npm', 'ci', '--silent', '--no-audit', '--no-fund'], cwd=folder) != 0:
            print('FAILED: npm ci in tests/browser')
            return 0, 1
    done = subprocess.run(['node', 'run.mjs'], cwd=folder, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, text=True,
                          timeout=GROUP_LIMIT)
    sys.stdout.write(done.stdout)
    found = re.search(r'^browser: (\d+) passed, (\d+) failed$', done.stdout, re.M)
    if not found:
        print(f'FAILED: browser tests ended with {done.returncode} and no result')
        return 0, 1
    return int(found[1]), int(found[2])


# Suites in which threads meet: connections, sessions, their mailboxes and channels.
THREADED = ('AccessLog*:AddressCounter*:Channel*:DeadlineTest*:Http*:Mailbox*:Multipart*:Page.*:Request*:ResourceTest*:'
            'ServerConfig*:SessionRegistry*:StaticFiles*:TlsTest*:UpdateLock*')

UNIT = ['toolkit_tests', 'platform_tests', 'app_tests', 'fuzz_tests']
DB = ['platform_dbtests', 'app_dbtests']
GROUPS = {
    'checks': ('style, include directions, message keys, registration', group_checks),
    'unit': ('unit tests under ASan and UBSan', group_gtest('asan', UNIT)),
    'db': ('tests against a running database service under ASan and UBSan', group_gtest('asan', DB)),
    'threads': ('server tests under TSan', group_gtest('tsan', ['toolkit_tests'], ['--gtest_filter=' + THREADED],
                                                           ['toolkit_tests'])),
    'browser': ('a real browser against the release build', group_browser),
}


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
    passed = failed = 0
    for name in wanted or GROUPS:
        what, job = GROUPS[name]
        print(f'== {name}: {what}', flush=True)
        begin = time.monotonic()
        try:
            p, f = job()
        except subprocess.TimeoutExpired:
            print(f'FAILED: group {name} did not end within {GROUP_LIMIT} s')
            p, f = 0, 1
        print(f'== {name}: {p} passed, {f} failed, {time.monotonic() - begin:.0f} s', flush=True)
        passed, failed = passed + p, failed + f
    print(f'{passed} passed, {failed} failed')
    return 1 if failed or not passed else 0


if __name__ == '__main__':
    sys.exit(main())
