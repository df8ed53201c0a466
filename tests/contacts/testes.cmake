# Tests of contacts.
