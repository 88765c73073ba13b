#include "service/ui/service_pane.h"

#include "desk/program.h"
#include "desk/ui/text.h"

#include <QtWidgets>

#include <algorithm>

namespace qor::ui {

namespace {

/// The entries that the panes' files have made, complete before the program begins.
const PaneEntry*& First() {
    static const PaneEntry* first = nullptr;
    return first;
}

} // namespace

PaneEntry::PaneEntry(ServicePage page, int place, Make make)
    : m_Page(page), m_Place(place), m_Make(make), m_Next(First()) {
    First() = this;
}

std::vector<const PaneEntry*> PaneEntry::Of(ServicePage page) {
    std::vector<const PaneEntry*> entries;
    for (const PaneEntry* entry = First(); entry; entry = entry->m_Next)
        if (entry->m_Page == page)
            entries.push_back(entry);
    std::sort(entries.begin(), entries.end(),
              [](const PaneEntry* a, const PaneEntry* b) { return a->m_Place < b->m_Place; });
    return entries;
}

ServicePageView::ServicePageView(ServicePage page, Program& program, Commands& commands, QWidget* parent)
    : ServicePane(parent), m_Program(program), m_Status(new QLabel), m_Inside(new QWidget) {
    auto* row = new QHBoxLayout;
    QVBoxLayout* column = nullptr;
    int number = -1;
    for (const PaneEntry* const entry : PaneEntry::Of(page)) {
        if (entry->Column() != number) {
            if (column)
                column->addStretch();
            column = new QVBoxLayout;
            row->addLayout(column, 1);
            number = entry->Column();
        }
        m_Panes.push_back(entry->MakePane(program, commands, this));
        column->addWidget(m_Panes.back());
    }
    if (column)
        column->addStretch();
    m_Inside->setLayout(row);
    auto* scroll = new QScrollArea;
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setWidget(m_Inside);                      // scrolls where the window has no room for all of it
    scroll->viewport()->setAutoFillBackground(false); // the panel's own
    m_Inside->setAutoFillBackground(false);
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(scroll, 1);
    m_Status->setObjectName(QStringLiteral("serviceStatus"));
    m_Status->setAccessibleName(Tr("Status"));
    m_Status->setTextFormat(Qt::PlainText);
    m_Status->setContentsMargins(10, 0, 10, 2);
    whole->addWidget(m_Status);
}

QSize ServicePageView::sizeHint() const {
    return {m_Inside->sizeHint().width(), m_Inside->sizeHint().height() + m_Status->sizeHint().height()};
}

void ServicePageView::Begin() {
    if (!m_Panes.empty())
        m_Panes.front()->nextInFocusChain()->setFocus(Qt::OtherFocusReason);
}

void ServicePageView::Refresh() {
    if (const QString status = TrText(m_Program.State().factory.Status()); m_Status->text() != status) {
        m_Status->setText(status);
        m_Status->setAccessibleDescription(status);
    }
    for (ServicePane* const pane : m_Panes)
        pane->Refresh();
}

} // namespace qor::ui
