#pragma once

#include "link/command_queue.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace qor {

/// Steps of the initialisation chain. It only grows after SerialDone, with every band change.
enum InitStep : int {
    InitIdentity = 0,
    InitMemory = 1,
    InitBandPosition = 2,
    InitBandText = 3,
    InitEnd = 4,
    InitSerial = 5,
    InitSerialDone = 6,
};

/// What answered last since the start: nothing means that no run can begin.
enum InitLamp : int { LampNothing = 0, LampStatus = 1, LampRecut = 2, LampPower = 3 };

/// Caption and state of the port button.
enum class PortButton { Scan, Open, Close };

/// A port of the list and, once probed, what hangs on it.
struct PortEntry {
    int number = 0;
    std::string text; ///< "COM3 (/dev/ttyUSB0)", later with ": RT-DB22" behind
};

struct LinkState {
    // The queue and the transaction in flight.
    CommandQueue queue;
    int g_CurTag = 0;
    float g_CurParam = 0;
    int tagCommPend = 0;              ///< reply bytes awaited; 0 idle; 1000 and up: the length is not known
    int tagtemp = 0;                  ///< reply bytes counted
    std::string TagCurrentCommand;    ///< text that identifies the reply
    int CommPendCt = 0;               ///< ticks of the wait since the command went out or was recognised
    bool TagWaitTimerIsKilled = true; ///< the reply's text has been seen, or nothing is in flight
    std::string m_revdatastr;         ///< reply text assembled so far
    std::int64_t firstSendMs = 0;     ///< when the first command of a chain went out; 0: it is not under way
    bool firstSendArmed = false;

    // Identity.
    float FirmVersion = 1.7f; ///< from the banner in steps of 0.1; 10 more for an "ev" banner
    std::string m_Type;       ///< model that all decisions test
    std::string g_ModelName;  ///< model as shown and filed
    std::string m_revdatastr_name;
    std::string g_EqName;
    std::string g_IMType;
    std::string m_devSN;
    std::string serialRead;    ///< characters of the serial number as they come
    bool memoryMissed = false; ///< a character of the text being read was never answered
    std::string g_DeviceSN = "00000";
    std::uint8_t g_InstrStatus = 0x64;
    std::string g_BandCmd;    ///< the last #SABn
    int bandOfCommand = 14;   ///< the band that g_BandCmd stands for, 14 when it is not known
    int g_bAwsChosen = 1;     ///< where PCS and AWS share a position: 1 is AWS
    std::string g_PowerTextA; ///< power the instrument echoed, dBm
    std::string g_PowerTextB;
    bool TagStartMeasStart = false; ///< flips with each M2T reply

    // The chain.
    int g_init = InitIdentity;
    bool g_isSWStart = false; ///< the full chain is used and the serial number is read
    bool g_bInitFlush = false;
    int g_InitLamp = LampNothing;

    // The connection.
    std::string m_comm_sel_v;
    std::string m_comm_settings;
    std::vector<PortEntry> g_PortList;
    std::string portListText; ///< the entry chosen in the port list box
    int g_LastPort = 0;
    int g_ProbeIndex = 0;
    bool g_bProbing = false;
    bool g_bProbeSlow = true;
    std::map<int, std::string> m_PortSettings;
    int tagCommTimer = 0;
    bool bCOMResponse = true;
    bool g_bStartAfterConnect = false;
    int m_CloseCountdown = 0;
    PortButton portButton = PortButton::Scan;
    bool identifyAfterLoss = false; ///< a reconnection asks for everything, as the first connection does
    int contactLosses = 0;          ///< times contact was lost since the program started

    // Flags of the status poll and of factory work that the channel reads.
    bool TagSettingcheck = true; ///< the status poll is not armed and must be at the next chance
    bool TagCalf1f2 = false;     ///< a calibration owns the channel
    std::string m_SetIMOrder;    ///< "0" while a run is on
};

} // namespace qor
