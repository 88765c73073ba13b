#pragma once

#include "results/sheet/sheet_forms.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

/// The forms that are written after each run.
struct AutoSaveForms {
    bool dat = false;
    bool txt = false;
    bool pdf = false;
    bool sweepSheet = false;  ///< "_sweep.xls"
    bool detailSheet = false; ///< "_detail.xls"

    [[nodiscard]] bool Any() const { return dat || txt || pdf || sweepSheet || detailSheet; }
    /// What stands behind the name of each, the report last.
    [[nodiscard]] std::vector<std::string_view> Endings() const;
};

/// How and where results are saved without being asked for. All of it ends with the program.
class AutoSave {
public:
    [[nodiscard]] bool IsOn() const { return g_autoSaveOn; }
    [[nodiscard]] const AutoSaveForms& Forms() const { return m_Forms; }
    /// Forms of the sheets that are saved by hand: those of auto-save, the sweep form when it has none.
    [[nodiscard]] SheetTemplates Templates() const {
        return {m_Forms.sweepSheet || !m_Forms.detailSheet, m_Forms.detailSheet};
    }
    [[nodiscard]] const std::string& Path() const { return g_autoSavePath; }
    /// The texts of "Frefix Set" as they were entered last.
    [[nodiscard]] const std::string& PrefixName() const { return m_PrefixName; }
    [[nodiscard]] const std::string& PrefixNumber() const { return m_PrefixNumber; }
    [[nodiscard]] int NextNumber() const { return g_snNumber; }
    /// Counts the runs that were saved: behind each the operator enters the next serial number.
    [[nodiscard]] unsigned Saved() const { return m_Saved; }

    void Switch(bool on) { g_autoSaveOn = on; }
    void SetForms(const AutoSaveForms& forms) { m_Forms = forms; }
    void SetTemplates(bool sweep, bool detail) {
        m_Forms.sweepSheet = sweep;
        m_Forms.detailSheet = detail;
    }
    /// A path whose folder takes the files; either kind of separator divides it.
    void SetPath(std::string path);
    /// The folder of a series goes before that path; the name stands behind the serial number.
    void SetSeries(std::string folder, std::string name) {
        g_autoSaveFolder = std::move(folder);
        g_autoSaveName = std::move(name);
    }
    /// Serial numbers begin with `name` and `date`; the next one is that of `digits`.
    void SetPrefix(std::string name, std::string_view date, std::string digits);
    /// The number that follows is the next one.
    void CountOn(int number) { g_snNumber = number + 1; }
    void CountSaved() { ++m_Saved; }

    /// Serial number of the device that a number stands for: "line4 2026-03-07  SN 00012".
    [[nodiscard]] std::string SerialOf(int number) const;
    /// Where a result with that serial number goes.
    [[nodiscard]] std::filesystem::path FileOf(const std::string& serial, std::string_view ending) const;
    /// Path of the numbered file of a repeated measurement: in the folder of a 2-tone series when one is set,
    /// else in `stores`.
    [[nodiscard]] std::filesystem::path NumberedFile(int number, bool twoTone,
                                                     const std::filesystem::path& stores) const;

private:
    [[nodiscard]] std::filesystem::path Folder() const;

    bool g_autoSaveOn = false;
    AutoSaveForms m_Forms;
    std::string g_autoSavePath;   ///< of the set-up; '/' divides it
    std::string g_autoSaveFolder; ///< overrides it when not empty
    std::string g_autoSaveName;   ///< behind the serial number, in that folder
    std::string g_snPrefix;       ///< in front of " SN "
    int g_snNumber = 0;           ///< next running number
    unsigned m_Saved = 0;
    std::string m_PrefixName;
    std::string m_PrefixNumber;
};

/// A serial number whose run was not wanted: the digits at its end stand for one less, in as many places.
[[nodiscard]] std::string LoweredSerial(const std::string& serial);

} // namespace qor
