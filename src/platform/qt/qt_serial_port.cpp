#include "platform/qt/qt_serial_port.h"

#include <QTimer>

#include <charconv>

namespace qor {

QtSerialPort::QtSerialPort(const PortList& ports) : m_Ports(ports) {
    QObject::connect(&m_Port, &QSerialPort::readyRead, [this] { Report(CommEvent::Receive); });
    QObject::connect(&m_Port, &QSerialPort::errorOccurred,
                     [this](QSerialPort::SerialPortError error) { OnError(error); });
}

void QtSerialPort::SetPortOpen(bool open) {
    if (open == m_Port.isOpen())
        return;
    if (open) {
        Open();
        return;
    }
    m_Losing = false;
    m_Port.flush();
    m_Port.close();
}

void QtSerialPort::Open() {
    const std::string device = m_Ports.DeviceOf(m_Number);
    if (device.empty())
        return;
    int baud = QSerialPort::Baud9600;
    std::from_chars(m_Settings.data(), m_Settings.data() + m_Settings.size(), baud);
    m_Losing = true; // what goes wrong while opening shows as a closed port, not as a lost line
    m_Port.setPortName(QString::fromStdString(device));
    m_Port.setBaudRate(baud);
    m_Port.setDataBits(QSerialPort::Data8);
    m_Port.setParity(QSerialPort::NoParity);
    m_Port.setStopBits(QSerialPort::OneStop);
    m_Port.setFlowControl(QSerialPort::NoFlowControl);
    if (m_Port.open(QIODevice::ReadWrite))
        m_Port.clear();
    m_Losing = false;
}

void QtSerialPort::SetOutput(std::string_view bytes) {
    if (!m_Port.isOpen())
        return;
    m_Port.write(bytes.data(), static_cast<qint64>(bytes.size()));
    m_Port.flush(); // each write leaves at once and in order
}

void QtSerialPort::GetInput(std::string& bytes) {
    bytes.clear();
    if (!m_Port.isOpen())
        return;
    bytes.resize(static_cast<std::size_t>(m_Port.bytesAvailable()));
    const qint64 got = m_Port.read(bytes.data(), static_cast<qint64>(bytes.size()));
    bytes.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
}

void QtSerialPort::OnError(QSerialPort::SerialPortError error) {
    // A pseudo-terminal has no modem lines; that is no fault.
    if (error == QSerialPort::NoError || error == QSerialPort::UnsupportedOperationError ||
        error == QSerialPort::TimeoutError || m_Losing)
        return;
    m_Losing = true;
    // Closing from inside the port's own signal is not safe.
    QTimer::singleShot(0, &m_Port, [this] { LoseLine(); });
}

void QtSerialPort::LoseLine() {
    if (!m_Losing || !m_Port.isOpen())
        return;
    m_Losing = false;
    m_Port.close();
    Report(CommEvent::Lost);
}

} // namespace qor
