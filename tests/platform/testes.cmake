# Tests of platform.
