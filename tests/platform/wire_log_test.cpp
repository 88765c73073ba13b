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
    SystemPortList ports({a, b, a}, true);
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

TEST(SystemPortList, GivenDevicesStandAheadOfTheSystems) {
    TempDir dir;
    const std::string given = (dir / "tty").string();
    std::ofstream(given) << '.';
    SystemPortList ports({given}, false);
    const auto list = ports.List();
    ASSERT_FALSE(list.empty());
    EXPECT_EQ(list.front().device, given);
    EXPECT_EQ(list.front().number, 1);
    EXPECT_EQ(list.size(), ports.List().size());
}

} // namespace
} // namespace qor::test
