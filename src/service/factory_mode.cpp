#include "service/factory_mode.h"

namespace qor {

namespace {

constexpr std::string_view Pin = "740261";

} // namespace

bool FactoryMode::Enter(std::string_view pin, std::int64_t nowMs) {
    if (IsShut(nowMs))
        return false;
    if (pin == Pin) {
        m_WrongPins = 0;
        g_factoryMode = true;
        return true;
    }
    if (++m_WrongPins < MostWrongPins)
        return false;
    m_WrongPins = 0;
    m_ShutUntilMs = nowMs + ShutMs;
    return false;
}

void FactoryMode::Leave() {
    Close();
    g_factoryMode = false;
}

void FactoryMode::Close() {
    m_Page = ServicePage::None;
    m_Status.clear();
    m_Work = ServiceWork::None;
    m_KeepsCarriers = false;
}

bool FactoryMode::Begin(ServiceWork work) {
    if (IsBusy())
        return false;
    m_Work = work;
    return true;
}

void FactoryMode::End(ServiceWork work) {
    if (m_Work != work)
        return;
    m_Work = ServiceWork::None;
    m_KeepsCarriers = false;
}

} // namespace qor
