// Any bytes as a comment store, a pointer to a saved configuration, its contents, a field of the calculator,
// the protocol of a calibration, or a copy of a memory.

#include "desk/configuration.h"
#include "fuzz/fuzz.h"
#include "service/calibration_protocol.h"
#include "service/memory_file.h"
#include "tools/calculator.h"
#include "tools/comment.h"

namespace {

using qor::test::Require;

bool HasSoftBreak(const std::string& text) {
    return text.find("\r\r\n") != std::string::npos;
}

void TryComment(const std::string& text) {
    const std::string shown = qor::ShownComment(text);
    const std::string stored = qor::StoredComment(shown);
    Require(stored.size() <= qor::LongestComment && stored.size() % (qor::CommentColumns + 2) == 0);
    if (stored.size() < qor::LongestComment)
        Require(qor::ShownComment(stored) ==
                qor::ShownComment(qor::StoredComment(qor::ShownComment(stored))));
    Require(qor::StoredComment(text).size() <= qor::LongestComment);

    std::string edited = text;
    std::size_t caret = text.size() / 2;
    qor::WrapComment(edited, caret);
    Require(caret <= edited.size());
    if (text.find('\r') == std::string::npos) { // as an editor hands it over
        std::string again = edited;
        qor::WrapComment(again, caret);
        Require(again == edited);
        Require(HasSoftBreak(edited) == (text.size() > qor::CommentColumns));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    TryComment(text);

    if (const auto folder = qor::ConfigurationFolder(text))
        Require(folder->size() == 14 && folder->find_first_not_of("0123456789") == std::string::npos);
    if (const auto files = qor::ParseContents(text)) {
        for (const qor::ConfigurationFile& file : *files) {
            Require(!file.name.empty() && file.name.front() != '/');
            Require(("/" + file.name + "/").find("/../") == std::string::npos);
        }
    }
    if (const auto protocol = qor::CalibrationProtocol::Parse(text)) {
        const auto again = qor::CalibrationProtocol::Parse(protocol->Text());
        Require(!again || again->Points().size() == protocol->Points().size());
    }
    if (const auto memory = qor::ParseMemoryFile(text)) {
        for (const auto& [place, value] : memory->cells)
            Require(place.first >= 0 && place.first <= 255 && place.second >= 0 && place.second <= 255 &&
                    value >= 0 && value <= 255);
        const auto again = qor::ParseMemoryFile(qor::MemoryFileText(*memory));
        Require(again && again->cells == memory->cells);
    }
    for (const auto field : {qor::CalculatorField::Dbm, qor::CalculatorField::Mw, qor::CalculatorField::Mv,
                             qor::CalculatorField::Zo}) {
        qor::CalculatorFields fields{text, text, text, field == qor::CalculatorField::Zo ? text : "50"};
        qor::Calculate(fields, field);
        for (const std::string& shown : {fields.dBm, fields.mW, fields.mV})
            Require(shown == text || shown.find_first_not_of("-.0123456789") == std::string::npos);
    }
    return 0;
}
