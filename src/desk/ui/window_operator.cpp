#include "desk/ui/window_operator.h"

#include "desk/ui/text.h"

#include <QtWidgets>

namespace qor::ui {

namespace {

QString TitleOr(std::string_view title) {
    return title.empty() ? QStringLiteral("QOR") : Tr(title);
}

/// "*.dat *.txt" as the file dialog's list, one kind a line.
QString Filters(std::string_view endings) {
    QStringList filters;
    for (const QString& ending : Plain(endings).split(' ', Qt::SkipEmptyParts))
        filters << ending.mid(2) + QStringLiteral(" (") + ending + ')';
    if (filters.size() > 1)
        filters.prepend(Tr("Alle passenden Dateien") + QStringLiteral(" (") + Plain(endings) + ')');
    return filters.join(QStringLiteral(";;"));
}

/// Signs of files by their kind alone: to look into them could take for ever, in a pipe or on a disk that
/// does not answer.
class PlainIcons final : public QFileIconProvider {
public:
    using QFileIconProvider::icon;
    [[nodiscard]] QIcon icon(const QFileInfo& info) const override {
        return icon(info.isDir() ? QAbstractFileIconProvider::Folder : QAbstractFileIconProvider::File);
    }
    [[nodiscard]] QString type(const QFileInfo& info) const override { return info.suffix(); }
};

/// A file dialog wide enough for long names beside size, kind and date.
class RoomyFileDialog final : public QFileDialog {
public:
    RoomyFileDialog(QWidget* parent, std::string_view title, const std::filesystem::path& folder,
                    std::string_view endings)
        : QFileDialog(parent, Tr(title), Plain(folder.string()), Filters(endings)) {
        setLabelText(LookIn, Tr("Ordner:"));
        setLabelText(FileName, Tr("Dateiname:"));
        setLabelText(FileType, Tr("Dateityp:"));
        resize(900, 520);
        static auto* const icons = new PlainIcons; // the dialog's thread has it until the program ends
        setIconProvider(icons);
        if (auto* parts = findChild<QSplitter*>())
            parts->setSizes({150, 750}); // the places' names beside the list
        if (auto* list = findChild<QTreeView*>()) {
            list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
            for (int column = 1; column < 4; ++column)
                list->header()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
        }
    }
    /// Behind the choice between saving and loading, which makes the buttons.
    void NameButtons(std::string_view accept) {
        setLabelText(Accept, Tr(accept));
        setLabelText(Reject, Tr("Abbrechen"));
    }
};

void ShowBox(QMessageBox::Icon sign, const QString& heading, const QString& text, QWidget* parent) {
    QMessageBox box(sign, heading, text.trimmed(), QMessageBox::Ok, parent);
    box.setTextFormat(Qt::PlainText);
    box.button(QMessageBox::Ok)->setText(Tr("OK"));
    box.exec();
}

/// Keeps what the operator presses from everything but the stop button while a call waits.
class OnlyTheStopButton final : public QObject {
public:
    explicit OnlyTheStopButton(const QWidget* window) : m_Window(window) { qApp->installEventFilter(this); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (!watched->isWidgetType() || watched->objectName() == QLatin1String("start") ||
            watched->objectName() == QLatin1String("calibration_run"))
            return false;
        switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Wheel:
        case QEvent::ContextMenu:
            return true;
        case QEvent::Close:
            event->ignore();
            return watched != m_Window;
        default:
            return false;
        }
    }

private:
    const QWidget* m_Window;
};

std::filesystem::path PathOf(const QString& name) {
    return std::filesystem::path(Utf8(name));
}

} // namespace

QWidget* WindowOperator::Parent() const {
    QWidget* top = QApplication::activeModalWidget();
    return top ? top : m_Window.data();
}

void WindowOperator::Message(std::string_view text, std::string_view title) {
    ShowLater(text, title, false);
}

void WindowOperator::Failure(std::string_view text, std::string_view title) {
    ShowLater(text, title, true);
}

void WindowOperator::Acknowledge(std::string_view text, std::string_view title) {
    ShowBox(QMessageBox::Information, TitleOr(title), TrText(text), Parent());
}

void WindowOperator::ShowLater(std::string_view text, std::string_view title, bool failed) {
    // The text of a message can have a part of its own behind a line end, as a path: it stays as it is.
    const QString shown = TrText(text);
    if (m_Open.contains(shown))
        return;
    m_Open.insert(shown);
    ShowSoon(shown, TitleOr(title), failed);
}

/// From the event loop: a timer's or a port's handler that waited here would hold up its own next tick, and
/// the engine would go on underneath it.
void WindowOperator::ShowSoon(const QString& shown, const QString& heading, bool failed) {
    QMetaObject::invokeMethod(
        &m_Later,
        [this, shown, heading, failed] {
            if (m_Living) { // a box would keep the call under way from coming back
                QTimer::singleShot(100, &m_Later,
                                   [this, shown, heading, failed] { ShowSoon(shown, heading, failed); });
                return;
            }
            ShowBox(failed ? QMessageBox::Warning : QMessageBox::Information, heading, shown, Parent());
            m_Open.remove(shown);
        },
        Qt::QueuedConnection);
}

bool WindowOperator::Ask(std::string_view text, std::string_view title) {
    return AskYesNo(text, title, QMessageBox::Yes);
}

bool WindowOperator::AskWithCare(std::string_view text, std::string_view title) {
    return AskYesNo(text, title, QMessageBox::No);
}

bool WindowOperator::AskYesNo(std::string_view text, std::string_view title, int usual) {
    QMessageBox box(QMessageBox::Question, TitleOr(title), TrText(text), QMessageBox::Yes | QMessageBox::No,
                    Parent());
    box.setTextFormat(Qt::PlainText);
    box.button(QMessageBox::Yes)->setText(Tr("&Ja"));
    box.button(QMessageBox::No)->setText(Tr("&Nein"));
    box.setDefaultButton(static_cast<QMessageBox::StandardButton>(usual));
    return box.exec() == QMessageBox::Yes;
}

Answer WindowOperator::AskOrCancel(std::string_view text, std::string_view title) {
    QMessageBox box(QMessageBox::Question, TitleOr(title), TrText(text),
                    QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, Parent());
    box.setTextFormat(Qt::PlainText);
    box.button(QMessageBox::Yes)->setText(Tr("&Ja"));
    box.button(QMessageBox::No)->setText(Tr("&Nein"));
    box.button(QMessageBox::Cancel)->setText(Tr("Abbrechen"));
    const int pressed = box.exec();
    return pressed == QMessageBox::Yes  ? Answer::Yes
           : pressed == QMessageBox::No ? Answer::No
                                        : Answer::Cancel;
}

Answer WindowOperator::AskOrElse(std::string_view text, std::string_view title, std::string_view other) {
    QMessageBox box(QMessageBox::Question, TitleOr(title), TrText(text), QMessageBox::Yes | QMessageBox::No,
                    Parent());
    box.setTextFormat(Qt::PlainText);
    box.button(QMessageBox::Yes)->setText(Tr("&Ja"));
    box.button(QMessageBox::No)->setText(Tr("&Nein"));
    const QPushButton* third = box.addButton(Tr(other), QMessageBox::ActionRole);
    box.setEscapeButton(QMessageBox::No);
    box.exec();
    if (box.clickedButton() == third)
        return Answer::Other;
    return box.clickedButton() == box.button(QMessageBox::Yes) ? Answer::Yes : Answer::No;
}

std::vector<std::filesystem::path> WindowOperator::FilesToOpen(std::string_view title,
                                                               const std::filesystem::path& folder,
                                                               std::string_view endings) {
    std::vector<std::filesystem::path> paths;
    RoomyFileDialog dialog(Parent(), title, folder, endings);
    dialog.setFileMode(QFileDialog::ExistingFiles);
    dialog.NameButtons("Oeffnen");
    if (dialog.exec() == QDialog::Accepted)
        for (const QString& name : dialog.selectedFiles())
            paths.push_back(PathOf(name));
    return paths;
}

std::filesystem::path WindowOperator::FileToSave(std::string_view title,
                                                 const std::filesystem::path& suggestion,
                                                 std::string_view endings) {
    const QString first = Plain(endings).section(' ', 0, 0).mid(2);
    RoomyFileDialog dialog(Parent(), title, suggestion.parent_path(), endings);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setOption(QFileDialog::DontConfirmOverwrite); // the one who writes asks
    dialog.NameButtons("Speichern");
    dialog.setDefaultSuffix(first);
    // A name without an ending takes that of the kind chosen.
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog, first](const QString& filter) {
        const QString kind = filter.section('(', 0, 0).trimmed();
        const bool isOne = filter.count('*') == 1;
        dialog.setDefaultSuffix(isOne ? kind : first);
    });
    dialog.selectFile(Plain(suggestion.filename().string()));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    return PathOf(dialog.selectedFiles().constFirst());
}

std::filesystem::path WindowOperator::Folder(std::string_view title, const std::filesystem::path& start) {
    RoomyFileDialog dialog(Parent(), title, start, {});
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    return PathOf(dialog.selectedFiles().constFirst());
}

bool WindowOperator::Progress(std::string_view what, int done, int total) {
    if (!m_Progress) {
        m_Progress = new QProgressDialog(Parent());
        m_Progress->setWindowTitle(QStringLiteral("QOR"));
        m_Progress->setCancelButtonText(Tr("Abbrechen"));
        m_Progress->setWindowModality(Qt::ApplicationModal);
        m_Progress->setAttribute(Qt::WA_DeleteOnClose);
        m_Progress->setMinimumDuration(500);
    }
    m_Progress->setLabelText(TrText(what));
    m_Progress->setMaximum(total);
    m_Progress->setValue(done); // lets the window live
    const bool goOn = m_Progress && !m_Progress->wasCanceled();
    if (m_Progress && (done >= total || !goOn))
        m_Progress->deleteLater();
    return goOn;
}

void WindowOperator::LetLive() {
    if (m_Living)
        return;
    m_Living = true;
    const OnlyTheStopButton filter(m_Window);
    QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    m_Living = false;
}

} // namespace qor::ui
