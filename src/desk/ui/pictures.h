#pragma once

#include "desk/panel.h"

#include <QIcon>
#include <QPushButton>
#include <QWidget>

class QPainter;

namespace qor::ui {

/// The path of the carriers: back to the port they left from, or through the device to the other one.
class PathPicture final : public QWidget {
public:
    explicit PathPicture(QWidget* parent);
    void Show(bool reflection);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool m_Reflection = true;
};

/// The lamp: red while the instrument is not ready, amber during a run, green when ready; its text beside it.
class LampPicture final : public QWidget {
public:
    explicit LampPicture(QWidget* parent);
    /// The state names the lamp; what else there is to it stands behind, and may be empty.
    void Show(Lamp lamp, const QString& state, const QString& detail);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Lamp m_Lamp = Lamp::NotReady;
    QString m_Text;
};

/// The name of the program at the column's head.
class HeadPicture final : public QWidget {
public:
    explicit HeadPicture(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// The start/stop button with its pictures, drawn at the size it has.
class StartButton final : public QPushButton {
public:
    explicit StartButton(QWidget* parent);
    void Show(bool running, bool small, const QString& caption);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool m_Running = false;
    bool m_Small = false;
};

/// The program's picture on the desktop and on the frames of its windows.
[[nodiscard]] QIcon ProgramIcon();

} // namespace qor::ui
