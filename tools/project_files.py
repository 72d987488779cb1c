"""The files of the project: what is tracked, and what is new and not ignored."""

import os
import subprocess

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
# Projects of their own, which know nothing of the folders around them: their sources include each other by name.
OWN_PROJECTS = ("tests/extension/plugin/",)


def project_files(suffixes=None):
    """Paths from the root, sorted. Without git (an unpacked archive) every file outside build/ and out/ counts."""
    try:
        listing = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"], cwd=ROOT,
                                 capture_output=True, check=True).stdout.decode()
        paths = [path for path in listing.split("\0") if path and os.path.isfile(os.path.join(ROOT, path))]
    except (OSError, subprocess.CalledProcessError):
        paths = []
        for folder, subfolders, names in os.walk(ROOT):
            subfolders[:] = [name for name in subfolders if name not in ("build", "out", ".git")]
            paths += [os.path.relpath(os.path.join(folder, name), ROOT) for name in names]
    return sorted(path for path in set(paths) if suffixes is None or path.endswith(suffixes))


def read_text(path):
    with open(os.path.join(ROOT, path), encoding="utf-8", errors="replace") as file:
        return file.read()


def own_project(path):
    """The project of its own that a path lies in, "" for the project as a whole."""
    return next((folder for folder in OWN_PROJECTS if path.startswith(folder)), "")
