#pragma once

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <thread>

// What the stand-ins for makers' libraries share. The environment steers them:
//   QOR_STANDIN_LOG       file to which each call is added, a line each, with its arguments
//   QOR_STANDIN_HANG      the operation that does not come back, for QOR_STANDIN_HANG_MS

inline const char* Told(const char* name, const char* usual) {
    const char* const text = std::getenv(name);
    return text ? text : usual;
}

template <typename... Arguments>
void Note(const char* operation, [[maybe_unused]] const char* form, Arguments... arguments) {
    if (const char* const path = std::getenv("QOR_STANDIN_LOG")) {
        if (std::FILE* const log = std::fopen(path, "a")) {
            std::fputs(operation, log);
            if constexpr (sizeof...(arguments) > 0)
                std::fprintf(log, form, arguments...);
            std::fputc('\n', log);
            std::fclose(log);
        }
    }
    if (std::strcmp(operation, Told("QOR_STANDIN_HANG", "")) == 0)
        std::this_thread::sleep_for(
            std::chrono::milliseconds(std::atoi(Told("QOR_STANDIN_HANG_MS", "1200"))));
}
