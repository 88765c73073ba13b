#include "support/application.h"

#include <QGuiApplication>

#include <array>

namespace qor::test {

void NeedApplication() {
    static int count = 1;
    static std::array<char, 4> name{"qor"};
    static std::array<char*, 2> arguments{name.data(), nullptr};
    static QGuiApplication application(count, arguments.data());
}

} // namespace qor::test
