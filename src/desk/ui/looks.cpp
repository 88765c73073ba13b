#include "desk/ui/looks.h"

#include "desk/appearance.h"

#include <QtWidgets>

namespace qor::ui {

namespace {

/// Colours of a look. The panel itself has one colour in all of them: the instrument's own.
struct Look {
    const char* window;
    const char* text;
    const char* field;
    const char* fieldText;
    const char* button;
    const char* buttonText;
    const char* border;
    const char* accent;
    const char* accentText;
    const char* tick; ///< light or dark: of a ticked box, on the accent
    int radius;
};

constexpr Look Vivid{"#e9edf5", "#16202e", "#ffffff", "#10182a", "#f6f8fc", "#16202e",
                     "#8fa3c4", "#1f5fbf", "#ffffff", "light",   5};
constexpr Look Ash{"#3a3d42", "#eceef0", "#24262a", "#f4f5f6", "#52565d", "#f4f5f6",
                   "#787d86", "#d7a13c", "#1b1c1f", "dark",    2};
constexpr Look Active{"#e4f1ec", "#10302a", "#fbfffd", "#0d2822", "#d2ebe1", "#0f332b",
                      "#5fa08d", "#0d7f68", "#ffffff", "light",   9};

constexpr const char* Sheet = R"(
QPushButton, QToolButton, QComboBox { background: @button; color: @buttonText; border: 1px solid @border;
    border-radius: @radiuspx; padding: 3px 8px; }
QPushButton:hover, QToolButton:hover, QComboBox:hover { border-color: @accent; }
QPushButton:pressed, QPushButton:checked { background: @accent; color: @accentText; }
QPushButton:focus, QComboBox:focus, QLineEdit:focus { border: 2px solid @accent; }
QPushButton:disabled { color: @border; }
QFileDialog QToolButton { padding: 2px; }
QFileDialog QListView, QFileDialog QTreeView { padding: 0; }
QCheckBox::indicator { width: 13px; height: 13px; border: 1px solid @border; border-radius: 2px; background: @field; }
QCheckBox::indicator:checked { background: @accent; border: 1px solid @accent; image: url(:/looks/tick_@tick.xpm); }
QCheckBox::indicator:focus { border: 2px solid @accent; width: 11px; height: 11px; }
QCheckBox::indicator:checked:focus { border-color: @text; }
QCheckBox::indicator:disabled { background: @window; }
QCheckBox::indicator:checked:disabled { background: @border; border-color: @border; }
QPushButton:default { border: 2px solid @accent; }
QLineEdit, QPlainTextEdit, QSpinBox, QListWidget { background: @field; color: @fieldText; border: 1px solid @border;
    border-radius: @radiuspx; padding: 1px 3px; selection-background-color: @accent; selection-color: @accentText; }
QLineEdit[wrong="true"], QPlainTextEdit[wrong="true"] { border: 2px solid #c62828; background: #ffe1df; color: #5c0a0a; }
QLineEdit:disabled { color: @border; }
QLabel#fault { color: #c62828; font-weight: bold; }
QMenuBar { background: @window; color: @text; }
QMenuBar::item { padding: 4px 9px; }
QMenuBar::item:selected, QMenu::item:selected { background: @accent; color: @accentText; }
QMenu { background: @field; color: @fieldText; border: 1px solid @border; }
QMenu::item { padding: 4px 26px 4px 24px; }
QMenu::item:disabled { color: @border; }
QMenu::separator { height: 1px; background: @border; margin: 4px 8px; }
QGroupBox { border: 1px solid @border; border-radius: @radiuspx; margin-top: 0.6em; padding-top: 0.5em; }
QGroupBox::title { subcontrol-origin: margin; left: 9px; padding: 0 4px; }
QTabBar::tab { background: @button; color: @buttonText; border: 1px solid @border; padding: 4px 12px; }
QTabBar::tab:selected { background: @accent; color: @accentText; }
QToolTip { background: #fffbe0; color: #202020; border: 1px solid #90855a; }

QWidget#panel { background: rgb(125,105,120); }
QWidget#panel QGroupBox { border: 1px solid rgb(176,160,172); color: #f7f2f5; background: transparent; }
QWidget#panel QGroupBox::title { color: #f7f2f5; }
QWidget#panel QLabel, QWidget#panel QCheckBox { color: #f7f2f5; background: transparent; }
QWidget#panel QCheckBox:disabled { color: rgb(165,150,161); }
QWidget#panel QCheckBox::indicator:focus { border: 2px solid @accent; width: 11px; height: 11px; }
QWidget#panel QCheckBox::indicator:disabled { background: rgb(125,105,120); }
QWidget#panel QLineEdit[readOnly="true"] { background: transparent; color: rgb(2,250,250); border: none; padding: 0; }
QWidget#panel QLineEdit#cell { background: rgb(96,79,91); color: #ffffff; border: 1px solid rgb(176,160,172);
    border-radius: 0; }
QWidget#panel QLineEdit#listRow { background: rgb(70,58,66); color: #ffffff; border: 1px solid rgb(150,134,146);
    border-radius: 0; }
QWidget#panel QLineEdit#listRow[shown="true"] { background: @accent; color: @accentText; }
QWidget#panel QLabel#notices { background: #7a4a00; color: #ffffff; padding-left: 6px; }
QWidget#panel QPushButton#small { padding: 0; border-radius: 2px; font-size: 10px; }
QWidget#panel QLineEdit#reading[over="true"] { color: rgb(255,0,0); }
)";

const Look& LookOf(int skin) {
    return skin == SkinAsh ? Ash : skin == SkinActive ? Active : Vivid;
}

} // namespace

void ApplyLook(int skin) {
    const Look& look = LookOf(skin);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(look.window));
    palette.setColor(QPalette::WindowText, QColor(look.text));
    palette.setColor(QPalette::Base, QColor(look.field));
    palette.setColor(QPalette::AlternateBase, QColor(look.window));
    palette.setColor(QPalette::Text, QColor(look.fieldText));
    palette.setColor(QPalette::Button, QColor(look.button));
    palette.setColor(QPalette::ButtonText, QColor(look.buttonText));
    palette.setColor(QPalette::Highlight, QColor(look.accent));
    palette.setColor(QPalette::HighlightedText, QColor(look.accentText));
    palette.setColor(QPalette::PlaceholderText, QColor(look.border));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(look.border));
    QApplication::setPalette(palette);

    QString sheet = QString::fromLatin1(Sheet);
    // The longer names first: each begins with a shorter one.
    const std::pair<const char*, QString> values[] = {{"@buttonText", look.buttonText},
                                                      {"@fieldText", look.fieldText},
                                                      {"@accentText", look.accentText},
                                                      {"@button", look.button},
                                                      {"@field", look.field},
                                                      {"@accent", look.accent},
                                                      {"@border", look.border},
                                                      {"@window", look.window},
                                                      {"@text", look.text},
                                                      {"@tick", look.tick},
                                                      {"@radius", QString::number(look.radius)}};
    for (const auto& [name, value] : values)
        sheet.replace(QLatin1String(name), value);
    qApp->setStyleSheet(sheet);
}

} // namespace qor::ui
