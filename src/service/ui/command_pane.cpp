// The free command: what is typed goes to the instrument as it stands, what it says stands below.
#include "desk/program.h"
#include "desk/tell.h"
#include "desk/ui/text.h"
#include "platform/platform.h"
#include "service/ui/group_pane.h"

#include <QtWidgets>

namespace qor::ui {

namespace {

/// A line whose former texts come back with the up key.
class HistoryLine final : public QLineEdit {
public:
    void Keep() {
        if (m_Lines.isEmpty() || m_Lines.last() != text())
            m_Lines << text();
        m_At = m_Lines.size();
    }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        const int step = event->key() == Qt::Key_Up ? -1 : event->key() == Qt::Key_Down ? 1 : 0;
        if (step == 0) {
            QLineEdit::keyPressEvent(event);
            return;
        }
        const qsizetype at = m_At + step;
        if (at < 0 || at > m_Lines.size())
            return;
        m_At = at;
        setText(at < m_Lines.size() ? m_Lines[at] : QString());
    }

private:
    QStringList m_Lines;
    qsizetype m_At = 0;
};

QPlainTextEdit* MakeText(std::string_view name, int height) {
    auto* text = new QPlainTextEdit;
    text->setReadOnly(true);
    text->setTabChangesFocus(true);
    text->setAccessibleName(Tr(name));
    text->setMinimumHeight(height);
    text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    return text;
}

class CommandPane final : public GroupPane {
public:
    CommandPane(Program& program, QWidget* parent)
        : GroupPane("Freier Befehl", parent), m_Program(program), m_Line(new HistoryLine),
          m_Response(MakeText("Command Response:", 60)), m_History(MakeText("Verlauf", 120)) {
        m_Line->setAccessibleName(Tr("Command line"));
        m_Line->setToolTip(
            Tr("Befehl an das Geraet, wie er getippt ist; mit der Pfeiltaste nach oben die frueheren"));
        auto* row = new QHBoxLayout;
        row->addWidget(m_Line);
        AddButton(row, "Send", [this] { Send(); });
        Column()->addLayout(row);
        QObject::connect(m_Line, &QLineEdit::returnPressed, this, [this] { Send(); });
        AddText("Command Response:", m_Response);
        AddText("Verlauf", m_History);
    }

    void Refresh() override {
        const ResponsePane& pane = m_Program.State().response;
        if (pane.Version() == m_Version)
            return;
        m_Version = pane.Version();
        m_Response->setPlainText(Shown(pane.Text()));
        QStringList lines;
        for (const std::string& line : pane.Lines())
            lines << Shown(line);
        m_History->setPlainText(lines.join('\n'));
        m_History->verticalScrollBar()->setValue(m_History->verticalScrollBar()->maximum());
    }

private:
    void AddText(std::string_view caption, QPlainTextEdit* text) {
        auto* label = new QLabel(Tr(caption));
        label->setBuddy(text);
        Column()->addWidget(label);
        Column()->addWidget(text, 1);
    }

    /// Bytes of the instrument are no text of any language.
    static QString Shown(const std::string& bytes) {
        QString text;
        for (const char c : bytes) {
            const auto byte = static_cast<unsigned char>(c);
            if (c == '\r')
                continue;
            text += c == '\n' || (byte >= ' ' && byte < 127)
                        ? QString(QLatin1Char(c))
                        : QStringLiteral("\\x%1").arg(byte, 2, 16, QLatin1Char('0'));
        }
        return text;
    }

    void Send() {
        const std::string text = Utf8(m_Line->text());
        if (text.empty())
            return;
        m_Line->Keep();
        if (Tell(m_Program.Service().Send(text), m_Program.Parts().user))
            m_Line->clear();
        Refresh();
    }

    Program& m_Program;
    HistoryLine* m_Line;
    QPlainTextEdit* m_Response;
    QPlainTextEdit* m_History;
    unsigned m_Version = ~0U;
};

const PaneEntry CommandPaneEntry(ServicePage::Test, 10, [](Program& program, Commands&, QWidget* parent) {
    return static_cast<ServicePane*>(new CommandPane(program, parent));
});

} // namespace

} // namespace qor::ui
