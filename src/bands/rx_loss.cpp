#include "bands/rx_loss.h"

#include "base/tenths.h"
#include "base/text_format.h"

namespace qor {

namespace {

constexpr std::size_t FieldLength = 5;

} // namespace

std::string RxLossField(double loss) {
    std::string field = Fixed(loss, 1);
    if (field.size() > FieldLength)
        return {};
    field.insert(field.starts_with('-') ? 1 : 0, FieldLength - field.size(), '0');
    return field;
}

RxLossFile ParseRxLoss(std::string_view text) {
    constexpr std::size_t FewestFields = 9; // the last four may be missing
    std::string fields(text);
    std::erase_if(fields, [](char c) { return c == '\r' || c == '\n'; });
    RxLossFile table;
    table.isShort = fields.size() < FewestFields * FieldLength;
    if (table.isShort)
        return table;
    for (std::size_t i = 0; i < table.losses.size() && i * FieldLength < fields.size(); ++i) {
        const auto loss = EnteredNumber(std::string_view(fields).substr(i * FieldLength, FieldLength));
        if (!loss)
            table.noNumber.push_back(i);
        else if (*loss < -99.9 || *loss > 9.9)
            table.outside.push_back(i);
        else
            table.losses[i] = static_cast<float>(*loss);
    }
    return table;
}

} // namespace qor
