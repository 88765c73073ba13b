#include "platform/visa/system_visa.h"

#include "platform/visa/loaded_visa.h"

namespace qor::visa {

namespace {

std::unique_ptr<VisaLibrary> LoadInstalled() {
    std::string why;
    return LoadedVisa::Load(InstalledVisaNames(), why);
}

} // namespace

SystemVisa::SystemVisa() : m_Installed(LoadInstalled) {}

VisaLibrary& SystemVisa::Used() {
    if (!m_HasInstalled)
        m_HasInstalled = m_Installed.IsLoaded();
    return m_HasInstalled.value_or(false) ? static_cast<VisaLibrary&>(m_Installed) : m_Own;
}

} // namespace qor::visa
