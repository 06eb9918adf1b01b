// Whether this machine is on a network, and by what.
// SPDX-License-Identifier: MIT
#include "platform/win_inet_connection.h"

#include <QCoreApplication>
#include <algorithm>
#include <cerrno>
#include <map>
#include <system_error>

#include "platform/error.h"
#ifdef Q_OS_UNIX
#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>
#else
#include <QNetworkInterface>
#endif

namespace kelu {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(kelu::CWinInetConnection)
};

constexpr const char* kProxyVariables[] = {"http_proxy", "https_proxy", "all_proxy", "HTTPS_PROXY", "ALL_PROXY"};

bool HasProxy() {
    return std::any_of(std::begin(kProxyVariables), std::end(kProxyVariables),
                       [](const char* name) { return !qEnvironmentVariableIsEmpty(name); });
}

bool CarriesTraffic(const NetworkInterface& interface) {
    return interface.isUp && interface.isRunning && !interface.isLoopback && interface.hasAddress;
}

#ifdef Q_OS_UNIX

/// An address that its owner gave itself for want of a network doesn't count.
bool ReachesBeyondLink(const sockaddr* address) {
    if (address == nullptr) return false;
    if (address->sa_family == AF_INET) {
        const quint32 number = ntohl(reinterpret_cast<const sockaddr_in*>(address)->sin_addr.s_addr);
        return number >> 16 != 0xA9FE && number >> 24 != 127;
    }
    if (address->sa_family != AF_INET6) return false;
    const in6_addr& number = reinterpret_cast<const sockaddr_in6*>(address)->sin6_addr;
    return !IN6_IS_ADDR_LINKLOCAL(&number) && !IN6_IS_ADDR_LOOPBACK(&number);
}

bool IsModemName(const QString& name) {
    return name.startsWith(QLatin1String("ppp")) || name.startsWith(QLatin1String("ww"));
}

#endif

}  // namespace

#ifdef Q_OS_UNIX

NetworkState ReadNetworkState() {
    NetworkState state;
    state.hasProxy = HasProxy();
    ifaddrs* entries = nullptr;
    if (::getifaddrs(&entries) != 0) {
        state.errorCode = errno;
        return state;
    }
    std::map<QString, NetworkInterface> byName;
    for (const ifaddrs* entry = entries; entry != nullptr; entry = entry->ifa_next) {
        const QString name = QString::fromLocal8Bit(entry->ifa_name);
        NetworkInterface& interface = byName[name];
        interface.name = name;
        interface.isUp = (entry->ifa_flags & IFF_UP) != 0;
        interface.isRunning = (entry->ifa_flags & IFF_RUNNING) != 0;
        interface.isLoopback = (entry->ifa_flags & IFF_LOOPBACK) != 0;
        interface.isModem = IsModemName(name);
        interface.hasAddress = interface.hasAddress || ReachesBeyondLink(entry->ifa_addr);
    }
    ::freeifaddrs(entries);
    for (const auto& [name, interface] : byName) state.interfaces.push_back(interface);
    return state;
}

#else

NetworkState ReadNetworkState() {
    NetworkState state;
    state.hasProxy = HasProxy();
    for (const QNetworkInterface& each : QNetworkInterface::allInterfaces()) {
        NetworkInterface interface;
        interface.name = each.humanReadableName();
        interface.isUp = each.flags().testFlag(QNetworkInterface::IsUp);
        interface.isRunning = each.flags().testFlag(QNetworkInterface::IsRunning);
        interface.isLoopback = each.flags().testFlag(QNetworkInterface::IsLoopBack);
        interface.isModem = each.type() == QNetworkInterface::Ppp;
        for (const QNetworkAddressEntry& entry : each.addressEntries())
            interface.hasAddress = interface.hasAddress || !entry.ip().isLinkLocal();
        state.interfaces.push_back(interface);
    }
    return state;
}

#endif

CWinInetConnection::CWinInetConnection(std::function<NetworkState()> reader) : reader_(std::move(reader)) {}

void CWinInetConnection::Refresh() {
    const NetworkState state = reader_();
    const auto carrier = std::find_if(state.interfaces.begin(), state.interfaces.end(), CarriesTraffic);
    isConnected_ = carrier != state.interfaces.end();
    if (!isConnected_) RaiseApiError(QStringLiteral("Refresh"), state.errorCode);
    useModem_ = isConnected_ && carrier->isModem;
    useLan_ = isConnected_ && !carrier->isModem;
    useProxy_ = state.hasProxy;
    isConfigured_ = std::any_of(state.interfaces.begin(), state.interfaces.end(),
                                [](const NetworkInterface& each) { return each.isUp && !each.isLoopback; });
    connectionName_ = isConnected_ ? carrier->name : QString();
}

QString CWinInetConnection::GetWinApiDesc(int code) {
    return QString::fromStdString(std::system_category().message(code)).trimmed();
}

/// The Internet functions' codes that a reader may pass on; the system has no texts for them.
QString CWinInetConnection::GetWinInetDesc(int code) {
    switch (code) {
        case 12002:
            return Texts::tr("The operation timed out");
        case 12007:
            return Texts::tr("The server name or address could not be resolved");
        case 12029:
            return Texts::tr("A connection with the server could not be established");
        case 12163:
            return Texts::tr("The connection with the Internet has been lost");
        default:
            return {};
    }
}

void CWinInetConnection::RaiseApiError(const QString& operation, int code) {
    if (code <= 0) return;
    const bool isInternet = code >= kFirstInternetCode;
    const QString kind = isInternet ? QStringLiteral("WinInet API Error: ") : QStringLiteral("Win32API Error: ");
    const QString text = isInternet ? GetWinInetDesc(code) : GetWinApiDesc(code);
    throw Error(static_cast<int>(kErrorBase + static_cast<quint32>(code)), kind + QString::number(code) + u' ' + text,
                QStringLiteral("CWinInetConnection.") + operation);
}

}  // namespace kelu
