#pragma once

#include <QLineEdit>

namespace qor::ui {

/// The large reading. Over the limit it is red on a dark ground that it hardly stands out from: its figures
/// have a dark outline then.
class ReadingField final : public QLineEdit {
public:
    using QLineEdit::QLineEdit;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace qor::ui
