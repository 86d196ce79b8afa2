// A library with nothing in it, to load instead of the core.
