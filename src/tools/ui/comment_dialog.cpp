#include "desk/program.h"
#include "desk/ui/form_dialog.h"
#include "desk/ui/open_dialog.h"
#include "desk/ui/text.h"
#include "tools/comment.h"

#include <QtWidgets>

namespace qor::ui {

namespace {

// A document has characters of its own for the two kinds of break.
const QString HardBreak = QStringLiteral("\r\n");
const QString SoftBreak = QStringLiteral("\r\r\n");

std::string FromDocument(QString raw) {
    raw.replace(QChar(QChar::LineSeparator), SoftBreak);
    raw.replace(QChar(QChar::ParagraphSeparator), HardBreak);
    return Utf8(raw);
}

QString ToDocument(std::string_view text) {
    QString raw = Plain(text);
    raw.replace(SoftBreak, QString(QChar(QChar::LineSeparator)));
    raw.replace(HardBreak, QString(QChar(QChar::ParagraphSeparator)));
    return raw;
}

class CommentDialog final : public FormDialog {
public:
    CommentDialog(Program& program, QWidget* parent)
        : FormDialog("Addieren Anmerkung", parent), m_Program(program), m_Text(new QPlainTextEdit) {
        m_Text->setAccessibleName(Tr("Anmerkung:"));
        m_Text->setTabChangesFocus(true);
        m_Text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
        m_Text->setLineWrapMode(QPlainTextEdit::NoWrap);
        const QFontMetrics metrics(m_Text->font());
        constexpr int Rows = static_cast<int>(LongestComment / (CommentColumns + 2));
        m_Text->setMinimumSize(metrics.horizontalAdvance('0') * (static_cast<int>(CommentColumns) + 4),
                               metrics.lineSpacing() * (Rows + 2));
        auto* label = new QLabel(Tr("Anmerkung:"));
        label->setBuddy(m_Text);
        Column()->addWidget(label);
        Column()->addWidget(m_Text);
        AddButtons("Sich", "");
        AddButton("Last Saved", [this] {
            if (const auto text = LastSavedComment(m_Program.Stores()))
                SetText(*text);
        });
        m_Add = AddButton("Addieren", [this] { Add(); });
        SetText(OpenComment(program.State().results.device, program.Stores()));
        m_Add->setEnabled(false);
        QObject::connect(m_Text, &QPlainTextEdit::textChanged, this, [this] { OnChange(); });
    }

private:
    void SetText(std::string_view text) {
        m_Text->setPlainText(ToDocument(text));
        m_Text->moveCursor(QTextCursor::End);
    }

    void OnChange() {
        m_Add->setEnabled(true);
        if (m_Text->document()->isRedoAvailable())
            return; // a step back shows what stood there
        const QString raw = m_Text->document()->toRawText();
        QTextCursor cursor = m_Text->textCursor();
        std::string text = FromDocument(raw);
        std::size_t caret = FromDocument(raw.left(cursor.position())).size();
        WrapComment(text, caret);
        const QString wrapped = ToDocument(text);
        if (wrapped == raw)
            return;
        const QSignalBlocker quiet(m_Text);
        cursor.beginEditBlock();
        cursor.select(QTextCursor::Document);
        cursor.insertText(wrapped);
        cursor.endEditBlock();
        cursor.setPosition(static_cast<int>(ToDocument(std::string_view(text).substr(0, caret)).size()));
        m_Text->setTextCursor(cursor);
    }

    /// Shows what was kept: a text that was too long has lost its end.
    void Add() {
        AddComment(FromDocument(m_Text->document()->toRawText()), m_Program.State().results.device,
                   m_Program.Stores());
        SetText(ShownComment(m_Program.State().results.device.Comment()));
        m_Add->setEnabled(false);
    }

    Program& m_Program;
    QPlainTextEdit* m_Text;
    QPushButton* m_Add = nullptr;
};

bool OpenCommentDialog(Program& program, int /*argument*/, QWidget* parent) {
    CommentDialog(program, parent).exec();
    program.State().curve.Touch(); // the plot lay under the dialog
    return true;
}

const DialogEntry CommentDialogEntry("comment", OpenCommentDialog);

} // namespace

} // namespace qor::ui
