#pragma once

#include <dlfcn.h>
#include <string>

namespace qor::visa {

/// The function `name` of a loaded library; without it false, and `missing` is its name.
template <typename Function>
bool Resolve(void* library, const char* name, Function*& into, std::string& missing) {
    into = reinterpret_cast<Function*>(dlsym(library, name));
    if (!into)
        missing = name;
    return into != nullptr;
}

} // namespace qor::visa
