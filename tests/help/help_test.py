#!/usr/bin/env python3
"""help_test.py HELP_FOLDER [PROGRAMS_FOLDER]: the tests of the help.

HELP_FOLDER is where the build writes help/, qz7.hlp and the manual pages; PROGRAMS_FOLDER is
where qz7ctl and qz7radio of this machine are. Without it their options are not compared.
"""
import sys
import unittest

import support

if __name__ == "__main__":
    if len(sys.argv) not in (2, 3):
        sys.exit(__doc__)
    support.reexecute_with_packages()
    support.built["help"] = sys.argv[1]
    support.built["programs"] = sys.argv[2] if len(sys.argv) == 3 else None
    suite = unittest.defaultTestLoader.discover(support.HERE, pattern="*_test.py")
    result = unittest.TextTestRunner(verbosity=1).run(suite)
    sys.exit(not result.wasSuccessful())
