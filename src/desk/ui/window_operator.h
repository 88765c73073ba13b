#pragma once

#include "platform/operator.h"

#include <QPointer>
#include <QSet>
#include <QString>
#include <QWidget>

class QProgressDialog;

namespace qor::ui {

/// The operator at the window: message boxes, questions, file dialogs.
class WindowOperator final : public Operator {
public:
    /// Boxes belong to this window; without one they stand alone.
    void SetWindow(QWidget* window) { m_Window = window; }

    void Message(std::string_view text, std::string_view title = {}) override;
    void Failure(std::string_view text, std::string_view title = {}) override;
    void Acknowledge(std::string_view text, std::string_view title = {}) override;
    [[nodiscard]] bool AskWithCare(std::string_view text, std::string_view title) override;
    [[nodiscard]] bool Ask(std::string_view text, std::string_view title) override;
    [[nodiscard]] Answer AskOrCancel(std::string_view text, std::string_view title) override;
    [[nodiscard]] Answer AskOrElse(std::string_view text, std::string_view title,
                                   std::string_view other) override;
    [[nodiscard]] std::vector<std::filesystem::path> FilesToOpen(std::string_view title,
                                                                 const std::filesystem::path& folder,
                                                                 std::string_view endings) override;
    [[nodiscard]] std::filesystem::path FileToSave(std::string_view title,
                                                   const std::filesystem::path& suggestion,
                                                   std::string_view endings) override;
    [[nodiscard]] std::filesystem::path Folder(std::string_view title,
                                               const std::filesystem::path& start) override;
    bool Progress(std::string_view what, int done, int total) override;
    void LetLive() override;

private:
    [[nodiscard]] bool AskYesNo(std::string_view text, std::string_view title, int usual);
    [[nodiscard]] QWidget* Parent() const;
    /// `failed`: with the warning sign.
    void ShowLater(std::string_view text, std::string_view title, bool failed);
    void ShowSoon(const QString& shown, const QString& heading, bool failed);

    QObject m_Later; ///< messages wait with it for the event loop
    QPointer<QWidget> m_Window;
    QPointer<QProgressDialog> m_Progress;
    bool m_Living = false; ///< inside LetLive
    QSet<QString> m_Open;  ///< messages on the screen now; a timer that repeats one does not pile it up
};

} // namespace qor::ui
