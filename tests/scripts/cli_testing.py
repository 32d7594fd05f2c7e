"""How the tests of velquist-cli run it: each function whose first parameter is `collection` or `work` is a
test, with a collection of 10,000 setups or an empty directory. Ends with "N passed, N failed"."""
import inspect
import json
import os
import subprocess
import sys
import tempfile
import traceback
from pathlib import Path

from cli_reading import DATA, ROOT

EXAMPLES = ROOT / 'examples' / 'GPL'
PROGRAM = [str(Path(sys.argv[1]).resolve())]


def run(*words, status=0, directory=None, data=DATA, **how):
    command = PROGRAM + [str(w) for w in words[:1]] + (['--program-directory', str(data)] if data else [])
    command += [os.fsencode(w) if isinstance(w, Path) else w for w in words[1:]]
    done = subprocess.run(command, capture_output=True, cwd=directory, timeout=120, check=False, **how)
    assert done.returncode == status, (
        f'{words}: expected status {status}, got {done.returncode}: {done.stderr.decode(errors="replace")}')
    if status != 2:
        assert done.stderr == b'', f'{words}: said {done.stderr}'
    else:
        for line in done.stderr.decode(errors='replace').splitlines():
            assert line.startswith(('velquist-cli: ', 'Try ')), line
    return done


NUMBERS = []


def parsed(text):
    """JSON whose numbers with a point or an exponent are remembered as they are spelled."""
    def number(spelled):
        NUMBERS.append(spelled)
        return float(spelled)
    return json.loads(text.decode('utf-8'), parse_float=number)


def json_of(*words, **how):
    return parsed(run(words[0], '--json', *words[1:], **how).stdout)


def equal(got, expected, what=''):
    assert got == expected, f'{what}: expected {expected!r}, got {got!r}'


def test_all(functions):
    passed = failed = 0
    base = '/dev/shm' if os.access('/dev/shm', os.W_OK) else None
    with tempfile.TemporaryDirectory(dir=base) as folder:
        folder = Path(folder).resolve()
        collection = folder / 'collection'
        for name, test in functions.items():
            wants = list(inspect.signature(test).parameters)[:1] if inspect.isfunction(test) else []
            if wants not in (['collection'], ['work']):
                continue
            if wants == ['collection'] and not collection.exists():
                subprocess.run([ROOT / 'tools/collection/make_collection', collection], check=True)
            work = folder / name
            work.mkdir()
            try:
                test(collection if wants == ['collection'] else work)
                passed += 1
            except Exception:  # pylint: disable=broad-except
                failed += 1
                print(f'{name} failed')
                traceback.print_exc(limit=-3, file=sys.stdout)
    print(f'{passed} passed, {failed} failed')
    return 1 if failed else 0
