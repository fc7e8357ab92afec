// Compiles the precompiled header that all Windows targets share.
