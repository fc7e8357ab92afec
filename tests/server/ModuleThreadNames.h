// The module's thread functions, as module_threads_test compiles them.
#pragma once

#include <windows.h>

#include <pthread.h>

using module_mutex_t = pthread_mutex_t;
using module_cond_t = pthread_cond_t;
using module_once_t = pthread_once_t;
using module_key_t = pthread_key_t;

inline constexpr module_mutex_t kModuleMutex = PTHREAD_MUTEX_INITIALIZER;
inline constexpr module_mutex_t kModuleRecursiveMutex = PTHREAD_RECURSIVE_MUTEX_INITIALIZER;
inline constexpr module_cond_t kModuleCondition = PTHREAD_COND_INITIALIZER;

extern "C"
{
    int module_mutex_init(module_mutex_t* mutex, const pthread_mutexattr_t* attributes);
    int module_mutex_destroy(module_mutex_t* mutex);
    int module_mutex_lock(module_mutex_t* mutex);
    int module_mutex_unlock(module_mutex_t* mutex);
    int module_cond_wait(module_cond_t* condition, module_mutex_t* mutex);
    int module_cond_broadcast(module_cond_t* condition);
    int module_once(module_once_t* once, void (*function)());
    int module_key_create(module_key_t* key, void (*destructor)(void*));
    void* module_getspecific(module_key_t key);
    int module_setspecific(module_key_t key, const void* value);
    BOOL WINAPI ModuleEntry(HINSTANCE instance, DWORD reason, LPVOID reserved);
}
