#pragma once

namespace qor {

/// What an external receiver is; any other number is asked as the third is.
enum ExternalReceiver : int { ReceiverAnalyser = 1, ReceiverNrv = 2, ReceiverNrp = 3, ReceiverSensor = 4 };

/// Which receiver measures the levels.
class ReceiverState {
public:
    [[nodiscard]] bool InstrumentListens() const { return tagReceiver == 1; }
    /// Of the external receiver, one of ExternalReceiver.
    [[nodiscard]] int ExternalKind() const { return g_ExtRxKind; }

    void UseInstrument() { tagReceiver = 1; }
    void UseExternal(int kind) {
        tagReceiver = 0;
        g_ExtRxKind = kind;
    }

private:
    int tagReceiver = 1; ///< 1: the instrument's own receiver measures, 0: an external one
    int g_ExtRxKind = ReceiverAnalyser;
};

} // namespace qor
