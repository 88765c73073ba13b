#pragma once

#include "platform/port_list.h"
#include "platform/serial_control.h"

#include <QSerialPort>

namespace qor {

/// A real serial port or a pseudo-terminal behind the serial control.
///
/// A pulled adapter reports its end again and again with the port still open, so the first real error closes
/// the port, once, and says so.
class QtSerialPort final : public CMSComm {
public:
    explicit QtSerialPort(const PortList& ports);

    void SetCommPort(int number) override { m_Number = number; }
    void SetSettings(std::string_view settings) override { m_Settings = settings; }
    void SetInputMode(CommInputMode) override {} // bytes are bytes here
    void SetPortOpen(bool open) override;
    [[nodiscard]] bool GetPortOpen() const override { return m_Port.isOpen(); }
    void SetOutput(std::string_view bytes) override;
    void GetInput(std::string& bytes) override;

private:
    void Open();
    void OnError(QSerialPort::SerialPortError error);
    void LoseLine();

    const PortList& m_Ports;
    QSerialPort m_Port;
    int m_Number = 0;
    std::string m_Settings = "9600,n,8,1";
    bool m_Losing = false; ///< an error was seen; the loss is reported from the event loop
};

} // namespace qor
