#pragma once

#include <QCoreApplication>

#include <memory>

namespace qor {
class PageForms;
}

namespace qor::app {

/// A program that paints loads fonts and the toolkit's graphics, which takes longer than many a job of the
/// others. So there are two of each, from the same sources: the one that is called, without graphics, and its
/// twin "NAME-pictures" beside it, which takes over once a picture is wanted.

/// True in the twin.
[[nodiscard]] bool CanPaint();
/// The application object, and what paints; null in a program without graphics.
[[nodiscard]] std::unique_ptr<QCoreApplication> MakeApplication(int& argc, char** argv);
[[nodiscard]] std::unique_ptr<PageForms> MakePageForms();

/// The twin goes on in this program's place. Comes back only when there is none; `program` is this one's
/// name.
void TakeOver(const char* program, char** argv);

} // namespace qor::app
