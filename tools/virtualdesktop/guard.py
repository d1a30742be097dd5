# SPDX-License-Identifier: Apache-2.0
"""Runs something in a folder of its own and leaves nothing behind, whatever ends it.

Two processes watch each other. The inner one does the work; it is told to stop when the outer one dies, even by
SIGKILL, and then tidies up as on every other way out. The outer one tidies up when the inner one was killed.
"""

import ctypes
import os
import shutil
import signal
import sys
import tempfile

from .processes import end_children

_PR_SET_PDEATHSIG = 1
_PR_SET_CHILD_SUBREAPER = 36
_STOPPING = (signal.SIGINT, signal.SIGTERM, signal.SIGHUP)


def _prctl(option, value):
    if ctypes.CDLL(None, use_errno=True).prctl(option, value, 0, 0, 0) != 0:
        raise OSError(ctypes.get_errno(), "prctl")


def run_guarded(work):
    """Calls work(folder) with a new private folder; returns its exit code. Nothing that it started survives."""
    folder = tempfile.mkdtemp(prefix="zepa-desktop-")
    sys.stdout.flush()
    sys.stderr.flush()
    _prctl(_PR_SET_CHILD_SUBREAPER, 1)
    outer = os.getpid()
    signal.pthread_sigmask(signal.SIG_BLOCK, _STOPPING)
    inner = os.fork()
    if inner == 0:
        code = _run_inner(work, folder, outer)
        sys.stdout.flush()
        sys.stderr.flush()
        os._exit(code)

    def pass_on(which, _frame):
        os.kill(inner, which)

    for which in _STOPPING:
        signal.signal(which, pass_on)
    signal.pthread_sigmask(signal.SIG_UNBLOCK, _STOPPING)
    _, status = os.waitpid(inner, 0)
    end_children()
    shutil.rmtree(folder, ignore_errors=True)
    code = os.waitstatus_to_exitcode(status)
    return code if code >= 0 else 128 - code


def _run_inner(work, folder, outer):
    def stop(which, _frame):
        for other in _STOPPING:
            signal.signal(other, signal.SIG_IGN)
        raise SystemExit(128 + which)

    try:
        for which in _STOPPING:
            signal.signal(which, stop)
        _prctl(_PR_SET_CHILD_SUBREAPER, 1)
        _prctl(_PR_SET_PDEATHSIG, signal.SIGTERM)
        if os.getppid() != outer:
            return 128 + signal.SIGTERM
        signal.pthread_sigmask(signal.SIG_UNBLOCK, _STOPPING)
        return work(folder)
    except SystemExit as stopped:
        return stopped.code
    except Exception as error:  # whatever went wrong, what was started must still be ended below
        sys.excepthook(type(error), error, error.__traceback__)
        return 1
    finally:
        for which in _STOPPING:
            signal.signal(which, signal.SIG_IGN)
        end_children()
        shutil.rmtree(folder, ignore_errors=True)
