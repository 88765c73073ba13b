#include "desk/program.h"
#include "desk/shown_page.h"
#include "desk/tell.h"
#include "desk/ui/form_dialog.h"
#include "desk/ui/open_dialog.h"
#include "desk/ui/text.h"
#include "platform/printer.h"
#include "results/report/paper.h"

#include <QtWidgets>

namespace qor::ui {

namespace {

/// The page as it will be printed, smaller than it is.
class PrintDialog final : public FormDialog {
public:
    PrintDialog(Program& program, const PaintedPage& page, QWidget* parent)
        : FormDialog("Drucken", parent), m_Program(program), m_Printers(new QComboBox) {
        const Picture16& picture = page.picture;
        const QImage whole(reinterpret_cast<const uchar*>(picture.pixels.data()), picture.width,
                           picture.height, 2 * picture.width, QImage::Format_RGB555);
        const QSize size(static_cast<int>(picture.width / PreviewDivisor),
                         static_cast<int>(picture.height / PreviewDivisor));
        auto* preview = new QLabel;
        preview->setAccessibleName(Tr("Seite"));
        preview->setPixmap(
            QPixmap::fromImage(whole.convertToFormat(QImage::Format_RGB32)
                                   .scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)));
        auto* scroll = new QScrollArea;
        scroll->setWidget(preview);
        scroll->setAlignment(Qt::AlignCenter);
        const int frame = 2 * scroll->frameWidth();
        const int room = screen()->availableGeometry().height() - 200;
        const int bar = size.height() > room ? style()->pixelMetric(QStyle::PM_ScrollBarExtent) : 0;
        scroll->setMinimumSize(size.width() + frame + bar, std::min(size.height(), room) + frame);
        Column()->addWidget(scroll);
        FillPrinters();
        AddButtons("Drucken", "Abbestellen");
        SetAccept([this] { return Print(); });
    }

private:
    void FillPrinters() {
        Printers* printers = m_Program.Parts().printers;
        const std::string standard = printers ? printers->DefaultName() : std::string();
        m_Printers->setAccessibleName(Tr("Drucker:"));
        for (const std::string& name : printers ? printers->Names() : std::vector<std::string>()) {
            m_Printers->addItem(Plain(name), Plain(name));
            if (name == standard)
                m_Printers->setCurrentIndex(m_Printers->count() - 1);
        }
        m_Printers->addItem(Tr("Datei (PDF)"));
        auto* form = AddGroup({});
        form->addRow(Tr("Drucker:"), m_Printers);
    }

    /// The last entry is a file.
    bool Print() {
        const QVariant name = m_Printers->currentData();
        return Tell(name.isValid() ? PrintShownPage(m_Program, Utf8(name.toString()))
                                   : PrintShownPageToFile(m_Program),
                    m_Program.Parts().user);
    }

    Program& m_Program;
    QComboBox* m_Printers;
};

bool OpenPrint(Program& program, int /*argument*/, QWidget* parent) {
    PaintedPage page;
    if (!Tell(PaintShownPage(program, page), program.Parts().user))
        return true; // told already
    PrintDialog(program, page, parent).exec();
    return true;
}

const DialogEntry PrintEntry("print", OpenPrint);

} // namespace

} // namespace qor::ui
