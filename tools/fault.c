// Makes chosen calls into the system fail, once or from a certain one on. Preloaded by tools/faults.py and
// tools/faults_window.py.
// SPDX-License-Identifier: MIT
//
//   KELU_FAULT=KIND:N     the N-th call of this kind fails, N counted from 1
//   KELU_FAULT=KIND:N+    that one and every later one
//   KELU_FAULT_TOLD=FILE  gets the number of such calls when the program ends by itself
//   KELU_FAULT_BYTES=N    from which size on mmap and malloc count; 1 MB without it
//
// A program that drives itself finds kelu_fault_arm and kelu_fault_calls by dlsym. Built with OVER_SANITIZER it passes
// memory on to the next library, which is the address sanitizer's.
//
// Kinds: write, fsync, rename (linkat, too), open (openat, fopen, mkdir), mmap, malloc, nameless (files without names,
// as where a file system has none).
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <malloc.h>
#include <stdarg.h>
#include <stdatomic.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

static atomic_int armed;
static char kind[16];
static long nth;
static int all_later;
static atomic_long calls;
static size_t least = 1 << 20;

// KIND:N or KIND:N+; N 0 only counts, and no kind at all ends it. Calls are counted anew.
void kelu_fault_arm(const char* wish) {
    atomic_store(&armed, 0);
    const char* colon = wish ? strchr(wish, ':') : NULL;
    if (!colon || colon - wish >= (long)sizeof kind) return;
    memset(kind, 0, sizeof kind);
    memcpy(kind, wish, (size_t)(colon - wish));
    nth = atol(colon + 1);
    all_later = wish[strlen(wish) - 1] == '+';
    atomic_store(&calls, 0);
    atomic_store(&armed, 1);
}

long kelu_fault_calls(void) { return atomic_load(&calls); }

__attribute__((constructor)) static void read_wish(void) {
    if (getenv("KELU_FAULT_BYTES")) least = (size_t)atol(getenv("KELU_FAULT_BYTES"));
    kelu_fault_arm(getenv("KELU_FAULT"));
}

__attribute__((destructor)) static void tell(void) {
    const char* path = getenv("KELU_FAULT_TOLD");
    if (!path) return;
    char text[32];
    const int length = snprintf(text, sizeof text, "%ld\n", atomic_load(&calls));
    const long file = syscall(SYS_openat, AT_FDCWD, path, O_WRONLY | O_CREAT | O_TRUNC, 0600);
    syscall(SYS_write, file, text, length);
    syscall(SYS_close, file);
}

static int fails(const char* of, int error) {
    if (!atomic_load(&armed) || strcmp(of, kind) != 0) return 0;
    const long call = atomic_fetch_add(&calls, 1) + 1;
    if (call != nth && !(all_later && call > nth)) return 0;
    errno = error;
    return 1;
}

#define REAL(name) \
    static __typeof__(name)* real; \
    if (!real) real = (__typeof__(name)*)dlsym(RTLD_NEXT, #name)

// Pipes and the events between threads don't run full; standard output and error are what is looked at.
static int no_room(int file) {
    struct stat state;
    return file > 2 && fstat(file, &state) == 0 && S_ISREG(state.st_mode) && fails("write", ENOSPC);
}
ssize_t write(int file, const void* bytes, size_t count) {
    REAL(write);
    return no_room(file) ? -1 : real(file, bytes, count);
}
ssize_t pwrite(int file, const void* bytes, size_t count, off_t at) {
    REAL(pwrite);
    return no_room(file) ? -1 : real(file, bytes, count, at);
}
ssize_t pwrite64(int file, const void* bytes, size_t count, off64_t at) {
    REAL(pwrite64);
    return no_room(file) ? -1 : real(file, bytes, count, at);
}
ssize_t writev(int file, const struct iovec* parts, int count) {
    REAL(writev);
    return no_room(file) ? -1 : real(file, parts, count);
}
int ftruncate(int file, off_t size) {
    REAL(ftruncate);
    return no_room(file) ? -1 : real(file, size);
}
int ftruncate64(int file, off64_t size) {
    REAL(ftruncate64);
    return no_room(file) ? -1 : real(file, size);
}
int fsync(int file) {
    REAL(fsync);
    return fails("fsync", EIO) ? -1 : real(file);
}
int fdatasync(int file) {
    REAL(fdatasync);
    return fails("fsync", EIO) ? -1 : real(file);
}
int rename(const char* from, const char* to) {
    REAL(rename);
    return fails("rename", EACCES) ? -1 : real(from, to);
}
int renameat2(int a, const char* from, int b, const char* to, unsigned flags) {
    REAL(renameat2);
    return fails("rename", EACCES) ? -1 : real(a, from, b, to, flags);
}
int linkat(int a, const char* from, int b, const char* to, int flags) {
    REAL(linkat);
    return fails("rename", EACCES) ? -1 : real(a, from, b, to, flags);
}
int link(const char* from, const char* to) {
    REAL(link);
    return fails("rename", EACCES) ? -1 : real(from, to);
}

static int no_open(int flags) {
    if ((flags & O_TMPFILE) == O_TMPFILE && fails("nameless", EOPNOTSUPP)) return 1;
    return fails("open", EMFILE);
}
#define MODE(flags) \
    mode_t mode = 0; \
    if (flags & (O_CREAT | O_TMPFILE)) { \
        va_list more; \
        va_start(more, flags); \
        mode = va_arg(more, mode_t); \
        va_end(more); \
    }
int open(const char* path, int flags, ...) {
    MODE(flags)
    REAL(open);
    return no_open(flags) ? -1 : real(path, flags, mode);
}
int open64(const char* path, int flags, ...) {
    MODE(flags)
    REAL(open64);
    return no_open(flags) ? -1 : real(path, flags, mode);
}
int openat(int folder, const char* path, int flags, ...) {
    MODE(flags)
    REAL(openat);
    return no_open(flags) ? -1 : real(folder, path, flags, mode);
}
int openat64(int folder, const char* path, int flags, ...) {
    MODE(flags)
    REAL(openat64);
    return no_open(flags) ? -1 : real(folder, path, flags, mode);
}
FILE* fopen(const char* path, const char* mode) {
    REAL(fopen);
    return fails("open", EMFILE) ? NULL : real(path, mode);
}
FILE* fopen64(const char* path, const char* mode) {
    REAL(fopen64);
    return fails("open", EMFILE) ? NULL : real(path, mode);
}
int mkdir(const char* path, mode_t mode) {
    REAL(mkdir);
    return fails("open", EACCES) ? -1 : real(path, mode);
}

void* mmap(void* at, size_t size, int rights, int flags, int file, off_t from) {
    REAL(mmap);
    return size >= least && fails("mmap", ENOMEM) ? MAP_FAILED : real(at, size, rights, flags, file, from);
}
void* mmap64(void* at, size_t size, int rights, int flags, int file, off64_t from) {
    REAL(mmap64);
    return size >= least && fails("mmap", ENOMEM) ? MAP_FAILED : real(at, size, rights, flags, file, from);
}

#ifdef OVER_SANITIZER
static void* next_malloc(size_t size) {
    REAL(malloc);
    return real(size);
}
static void* next_calloc(size_t count, size_t size) {
    REAL(calloc);
    return real(count, size);
}
static void* next_realloc(void* old, size_t size) {
    REAL(realloc);
    return real(old, size);
}
static void* next_memalign(size_t step, size_t size) {
    REAL(memalign);
    return real(step, size);
}
#else
// The C library's own names spare the way by dlsym, which needs memory itself.
extern void* __libc_malloc(size_t);
extern void* __libc_calloc(size_t, size_t);
extern void* __libc_realloc(void*, size_t);
extern void* __libc_memalign(size_t, size_t);
#define next_malloc __libc_malloc
#define next_calloc __libc_calloc
#define next_realloc __libc_realloc
#define next_memalign __libc_memalign
#endif
void* malloc(size_t size) { return size >= least && fails("malloc", ENOMEM) ? NULL : next_malloc(size); }
void* calloc(size_t count, size_t size) {
    return size && count >= least / size && fails("malloc", ENOMEM) ? NULL : next_calloc(count, size);
}
void* realloc(void* old, size_t size) {
    return size >= least && fails("malloc", ENOMEM) ? NULL : next_realloc(old, size);
}
void* memalign(size_t step, size_t size) {
    return size >= least && fails("malloc", ENOMEM) ? NULL : next_memalign(step, size);
}
void* aligned_alloc(size_t step, size_t size) { return memalign(step, size); }
int posix_memalign(void** made, size_t step, size_t size) {
    void* memory = memalign(step, size);
    if (memory) *made = memory;
    return memory ? 0 : ENOMEM;
}
