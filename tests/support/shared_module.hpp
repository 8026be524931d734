#pragma once

#include <stdexcept>
#include <string>
#ifdef _WIN32
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace fl::test {

/// A shared library that is loaded by its path while the program runs, and freed again.
class shared_module {
public:
    explicit shared_module(std::string const & path)
        : handle_(load(path)) {
        if (!handle_) {
            throw std::runtime_error("cannot be loaded: " + path);
        }
    }
    ~shared_module() { free(handle_); }
    shared_module(shared_module const &) = delete;
    shared_module & operator=(shared_module const &) = delete;

    /// Calls an exported C function without arguments.
    int call(char const * name) const { return function<int()>(name)(); }

    /// Returns an exported function.
    template <class Function>
    Function * function(char const * name) const {
        void * const found = find(handle_, name);
        if (!found) {
            throw std::runtime_error(std::string("is not exported: ") + name);
        }
        return reinterpret_cast<Function *>(found);
    }

    /// Tells whether a module of this path or file name is loaded.
    static bool is_loaded(std::string const & path) {
#ifdef _WIN32
        return GetModuleHandleA(path.c_str()) != nullptr;
#else
        void * const handle = dlopen(path.c_str(), RTLD_LAZY | RTLD_NOLOAD);
        return handle && dlclose(handle) == 0;
#endif
    }

private:
#ifdef _WIN32
    static void * load(std::string const & path) {
        return LoadLibraryA(path.c_str());
    }
    static void free(void * handle) {
        FreeLibrary(static_cast<HMODULE>(handle));
    }
    static void * find(void * handle, char const * name) {
        return reinterpret_cast<void *>(GetProcAddress(static_cast<HMODULE>(handle), name));
    }
#else
    static void * load(std::string const & path) {
        return dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    }
    static void free(void * handle) {
        dlclose(handle);
    }
    static void * find(void * handle, char const * name) {
        return dlsym(handle, name);
    }
#endif

    void * handle_;
};

} // namespace fl::test
