// The command carries all its code with it. Two of its libraries could load more at run time, which is never asked of
// them and could not work in a program that is linked whole: the linker leads their calls here.
extern "C" void* __wrap_dlopen(const char* file, int mode); // NOLINT(bugprone-reserved-identifier,cert-*): its rule

extern "C" void* __wrap_dlopen(const char* /*file*/, int /*mode*/) { // NOLINT(bugprone-reserved-identifier,cert-*)
    return nullptr;
}
