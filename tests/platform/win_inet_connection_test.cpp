// What counts as connected, and how a failed question to the system is reported.
// SPDX-License-Identifier: MIT
#include "platform/win_inet_connection.h"

#include <gtest/gtest.h>

#include "platform/error.h"
#include "tests/support/kit.h"

namespace kelu {
namespace {

NetworkInterface Interface(const char* name, bool up, bool running, bool address, bool loopback = false,
                           bool modem = false) {
    return {name, up, running, loopback, modem, address};
}

TEST(WinInetConnection, AnUpRunningAddressedInterfaceIsAConnection) {
    const NetworkInterface lo = Interface("lo", true, true, true, true);
    const struct {
        const char* name;
        std::vector<NetworkInterface> interfaces;
        const char* connection;  ///< null: not connected
        bool configured, modem;
    } kCases[] = {
        {"nothing", {}, nullptr, false, false},
        {"loopback alone", {lo}, nullptr, false, false},
        {"cable pulled", {lo, Interface("eth0", true, false, true)}, nullptr, true, false},
        {"switched off", {lo, Interface("eth0", false, true, true)}, nullptr, false, false},
        {"no address yet", {lo, Interface("eth0", true, true, false)}, nullptr, true, false},
        {"cable", {lo, Interface("eth0", true, true, true)}, "eth0", true, false},
        {"second one",
         {Interface("br0", true, false, true), Interface("wlan0", true, true, true)},
         "wlan0",
         true,
         false},
        {"dialled", {lo, Interface("ppp0", true, true, true, false, true)}, "ppp0", true, true},
    };
    for (const auto& each : kCases) {
        CWinInetConnection connection([&] { return NetworkState{each.interfaces, true, 0}; });
        connection.Refresh();
        EXPECT_EQ(connection.IsConnected(), each.connection != nullptr) << each.name;
        EXPECT_EQ(connection.IsOffline(), each.connection == nullptr) << each.name;
        EXPECT_EQ(connection.ConnectionName(), QString(each.connection)) << each.name;
        EXPECT_EQ(connection.IsConnectionConfigured(), each.configured) << each.name;
        EXPECT_EQ(connection.UseModem(), each.modem) << each.name;
        EXPECT_EQ(connection.UseLAN(), each.connection != nullptr && !each.modem) << each.name;
        EXPECT_TRUE(connection.UseProxy());
    }
}

TEST(WinInetConnection, SystemErrorsAreRaisedWithTheirNumber) {
    const struct {
        int code;
        const char* description;
    } kCases[] = {
        {5, "Win32API Error: 5 Input/output error"},
        {12000, "Win32API Error: 12000 Unknown error 12000"},
        {12007, "WinInet API Error: 12007 The server name or address could not be resolved"},
    };
    for (const auto& [code, description] : kCases) {
        CWinInetConnection connection([code = code] { return NetworkState{{}, false, code}; });
        const Error error = ErrorOf([&] { connection.Refresh(); });
        EXPECT_EQ(static_cast<quint32>(error.Number()), 0x80040000u + 1000u + static_cast<quint32>(code));
        EXPECT_EQ(error.Description(), description);
        EXPECT_EQ(error.Source(), "CWinInetConnection.Refresh");
        EXPECT_FALSE(connection.IsConnected());
    }
}

}  // namespace
}  // namespace kelu
