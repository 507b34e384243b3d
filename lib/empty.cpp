// The shared library's own translation unit: everything else comes from the
// module archives linked in whole.
