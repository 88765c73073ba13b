#pragma once

#include "base/outcome.h"
#include "base/reading.h"

#include <string_view>

namespace qor {

/// An instrument that did not understand, or could not do what it was told.
enum class InstrumentError { Syntax, OutOfRange, PllNotLocked };

/// What the link tells whoever stands above it.
class LinkEvents {
public:
    LinkEvents() = default;
    LinkEvents(const LinkEvents&) = delete;
    LinkEvents& operator=(const LinkEvents&) = delete;
    virtual ~LinkEvents() = default;

    /// The head of the queue is about to go out.
    virtual void BeforeSend() = 0;
    /// A send tick that sends nothing: a reply is awaited or the queue is empty.
    virtual void LineIdle() = 0;
    /// The answer to a level that a run has asked for: exactly one to each question.
    virtual void LevelReply(const Reading& level) = 0;
    virtual void ErrorReply(InstrumentError error) = 0;
    /// Time from the first command of a conversation to its reply, ms.
    virtual void ReplyTime(int ms) = 0;
    /// The band selected has become the working set. `byOperator` is false for the chain, which leaves a
    /// curve in the plot as it is: a run that a lost line cut short can still be saved.
    virtual void BandActivated(bool byOperator) = 0;
    /// The end of an initialisation: the queue has just been wiped.
    virtual void Initialised() = 0;
    /// A piece of a reply in text, as it came.
    virtual void Heard(std::string_view piece) = 0;
    /// Something that the operator has to know.
    virtual void Tell(const Outcome& outcome) = 0;
};

} // namespace qor
