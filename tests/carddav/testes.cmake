# Tests of carddav.
