# Tests of data.
