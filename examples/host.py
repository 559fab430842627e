#!/usr/bin/env python3
"""Shows the title browser over the rule store that the argument names.

The library is looked for as the system does; TA_VORLUMINE names another place. 0.1 is the version of
the interface that this program was written for.
"""

import ctypes
import os
import sys


def load_library():
    library = ctypes.CDLL(os.environ.get("TA_VORLUMINE", "libta_vorlumine.so.0.1"))
    editor = ctypes.c_void_p
    functions = {
        "create": (editor, []),
        "set_connect_string": (ctypes.c_int, [editor, ctypes.c_char_p]),
        "get_connect_string": (ctypes.c_char_p, [editor]),
        "show": (ctypes.c_int, [editor]),
        "last_failure": (ctypes.c_char_p, [editor]),
        "destroy": (None, [editor]),
    }
    for name, (result, arguments) in functions.items():
        function = getattr(library, "ta_vorlumine_" + name)
        function.restype = result
        function.argtypes = arguments
    return library


class Editor:
    """The editor of replacement definitions. Its failures are RuntimeErrors."""

    def __init__(self, connect_string):
        self._library = load_library()
        self._handle = self._library.ta_vorlumine_create()
        self._check(
            self._library.ta_vorlumine_set_connect_string(self._handle, connect_string.encode())
        )

    def show(self):
        """Runs the browser and returns when the user has closed it."""
        self._check(self._library.ta_vorlumine_show(self._handle))

    def close(self):
        self._library.ta_vorlumine_destroy(self._handle)
        self._handle = None

    def _check(self, failed):
        if failed:
            raise RuntimeError(self._library.ta_vorlumine_last_failure(self._handle).decode())


def main():
    if len(sys.argv) != 2:
        print(f"usage: {sys.argv[0]} CONNECT_STRING", file=sys.stderr)
        return 2
    editor = Editor(sys.argv[1])
    try:
        editor.show()
    except RuntimeError as failure:
        print(failure, file=sys.stderr)
        return 1
    finally:
        editor.close()
    return 0


if __name__ == "__main__":
    sys.exit(main())
