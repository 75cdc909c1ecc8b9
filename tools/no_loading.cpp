// The command carries all its code with it. Two of its libraries could load more at run time, which is never asked of
// them and could not work in a program that is linked whole: the linker leads their calls here.
// The name is the linker's choice.
// NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp,readability-identifier-naming)
extern "C" void* __wrap_dlopen(const char* file, int mode);

extern "C" void* __wrap_dlopen(const char* /*file*/, int /*mode*/) {
    return nullptr;
}

// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp,readability-identifier-naming)
