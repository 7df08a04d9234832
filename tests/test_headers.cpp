// Compiled so that its precompiled headers exist; every test program uses them.
