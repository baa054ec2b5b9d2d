// Run-time options of the sanitizer builds, linked into every program, so that no environment variable is
// needed.
//
// SDL unloads the GL driver at SDL_Quit, and what the driver still holds is then reported from frames without
// a name. Keeping libraries loaded gives those blocks their owner back, and they turn out to be reachable.

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define KELDIN_ADDRESS_SANITIZER 1
#endif
#endif
#if defined(__SANITIZE_ADDRESS__)
#define KELDIN_ADDRESS_SANITIZER 1
#endif

#if defined(KELDIN_ADDRESS_SANITIZER)
extern "C" {
int dlclose(void* /*handle*/) {
    return 0;
}

const char* __asan_default_options();
const char* __asan_default_options() {
    return "detect_leaks=1:detect_stack_use_after_return=1:strict_string_checks=1:check_initialization_order="
           "1:"
           "strict_init_order=1:intercept_tls_get_addr=0:max_allocation_size_mb=1024:allocator_may_return_"
           "null=1";
}

const char* __lsan_default_suppressions();
const char* __lsan_default_suppressions() {
    return "leak:libdbus-1.so\n";
}

const char* __lsan_default_options();
const char* __lsan_default_options() {
    return "print_suppressions=0";
}

const char* __ubsan_default_options();
const char* __ubsan_default_options() {
    return "print_stacktrace=1:halt_on_error=1";
}
}
#endif

#if defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define KELDIN_THREAD_SANITIZER 1
#endif
#endif
#if defined(__SANITIZE_THREAD__)
#define KELDIN_THREAD_SANITIZER 1
#endif

#if defined(KELDIN_THREAD_SANITIZER)
#include <cstdlib>

namespace {

// The software GL driver ends its own threads in a way that looks like a race; without threads it draws the same.
__attribute__((constructor)) void drawWithoutThreads() {
    ::setenv("LP_NUM_THREADS", "0", 0);
}

} // namespace

extern "C" {
// The geospatial library takes two locks of its own in both orders, on one thread, while it registers its drivers.
const char* __tsan_default_suppressions();
const char* __tsan_default_suppressions() {
    return "deadlock:libgdal.so\n";
}
}
#endif
