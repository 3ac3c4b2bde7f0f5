// Empty: the target needs a source to compile its headers with.
