// The artwork library holds only resources; a static library needs one source of its own.
