#include "platform/qt/system_port_list.h"
#include "platform/wire_log.h"
#include "support/temp_dir.h"
#include "support/virtual_time.h"

#include <fstream>
#include <gtest/gtest.h>

namespace qor::test {
namespace {

TEST(WireLog, OneLineATransferWithEscapes) {
    VirtualTime time;
    TempDir dir;
    time.RunFor(5000);
    WireLog log(time.clock);
    log.Record('>', "#SR"); // before the file is there
    EXPECT_FALSE(log.OpenFile((dir / "no" / "such").string()));
    ASSERT_TRUE(log.OpenFile((dir / "wire").string()));
    time.RunFor(1234);
    log.Record('<', std::string_view("a\\\r\n\0\x1f\x7f\x80\xff~ ", 11));
    log.Record('<', std::string(100, 'x'));
    const std::string lines = "1234 < a\\\\\\r\\n\\x00\\x1f\\x7f\\x80\\xff~ \n";
    EXPECT_EQ(FileText(dir / "wire"), lines + "1234 < " + std::string(100, 'x') + "\n")
        << "whole, and out at once";
    EXPECT_EQ(log.Recent(), "0 > #SR\n" + lines + "1234 < " + std::string(46, 'x') + "\n");
    EXPECT_TRUE(log.FileIsWhole());
}

TEST(WireLog, AFullDiskIsNoticed) {
    VirtualTime time;
    WireLog log(time.clock);
    if (!log.OpenFile("/dev/full"))
        GTEST_SKIP();
    log.Record('>', "#SR");
    EXPECT_FALSE(log.FileIsWhole());
}

TEST(WireLog, TheRingKeepsTheLast4096) {
    VirtualTime time;
    WireLog log(time.clock);
    const auto lines = [&] {
        const std::string text = log.Recent();
        return std::count(text.begin(), text.end(), '\n');
    };
    for (int i = 0; i < 4096; ++i)
        log.Record('>', std::to_string(i));
    EXPECT_EQ(lines(), 4096);
    EXPECT_TRUE(log.Recent().starts_with("0 > 0\n"));
    for (int i = 4096; i < 5000; ++i)
        log.Record('>', std::to_string(i));
    EXPECT_EQ(lines(), 4096);
    EXPECT_TRUE(log.Recent().starts_with("0 > 904\n"));
    EXPECT_TRUE(log.Recent().ends_with("0 > 4999\n"));
}

TEST(SystemPortList, ADeviceKeepsItsNumberWhileItComesAndGoes) {
    TempDir dir;
    const auto plug = [&](const char* name) { std::ofstream(dir / name) << '.'; };
    const std::string a = (dir / "ttyA").string();
    const std::string b = (dir / "ttyB").string();
    SystemPortList ports({a, b, a}, PortScope::Given);
    const auto listed = [&] {
        std::string text;
        for (const SerialDevice& device : ports.List())
            text += std::to_string(device.number) + (device.device == a ? "A" : "B");
        return text;
    };
    EXPECT_EQ(listed(), "");
    EXPECT_EQ(ports.DeviceOf(1), "");
    plug("ttyB");
    EXPECT_EQ(listed(), "1B");
    plug("ttyA");
    EXPECT_EQ(listed(), "2A1B") << "in the order given, by the numbers had";
    std::filesystem::remove(b);
    EXPECT_EQ(listed(), "2A");
    EXPECT_EQ(ports.DeviceOf(1), b) << "also while it is away";
    plug("ttyB");
    EXPECT_EQ(listed(), "2A1B");
    for (const int number : {-1, 0, 3, 1000})
        EXPECT_EQ(ports.DeviceOf(number), "");
}

/// What is offered is talked to: only USB devices are, and the machine's own ports when they are asked for.
TEST(SystemPortList, OnlyUsbDevicesAndThoseGivenAreOffered) {
    TempDir dir;
    const auto path = [&dir](const char* name) { return (dir / name).string(); };
    for (const char* name : {"ttyS0", "ttyUSB0", "pty"})
        std::ofstream(path(name)) << '.';
    std::filesystem::create_symlink(path("ttyUSB0"), path("analyser"));
    const auto system = [&] {
        return std::vector<SystemDevice>{{path("ttyS0"), false}, {path("ttyUSB0"), true}};
    };
    const auto listed = [&](std::vector<std::string> given, PortScope scope) {
        SystemPortList ports(std::move(given), scope, system);
        std::string text;
        for (const SerialDevice& device : ports.List())
            text += std::to_string(device.number) + std::filesystem::path(device.device).filename().string() +
                    " ";
        return text;
    };
    EXPECT_EQ(listed({}, PortScope::Usb), "1ttyUSB0 ");
    EXPECT_EQ(listed({}, PortScope::All), "1ttyUSB0 2ttyS0 ");
    EXPECT_EQ(listed({path("pty")}, PortScope::Usb), "1pty 2ttyUSB0 ");
    EXPECT_EQ(listed({path("pty")}, PortScope::Given), "1pty ");
    EXPECT_EQ(listed({path("ttyS0")}, PortScope::Usb), "1ttyS0 2ttyUSB0 ") << "named on the command line";
    EXPECT_EQ(listed({path("analyser")}, PortScope::Usb), "1analyser ")
        << "a link to a listed device is the same";
}

} // namespace
} // namespace qor::test
