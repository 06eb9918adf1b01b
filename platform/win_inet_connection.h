// Whether this machine is on a network, and by what.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <functional>
#include <vector>

namespace kelu {

/// One network interface of the machine.
struct NetworkInterface {
    QString name;
    bool isUp = false;       ///< switched on
    bool isRunning = false;  ///< with a carrier
    bool isLoopback = false;
    bool isModem = false;     ///< dialled: PPP, mobile radio
    bool hasAddress = false;  ///< one that reaches beyond the interface's own link
};

/// What the system says; `errorCode` is the system's when it could not be asked, else 0.
struct NetworkState {
    std::vector<NetworkInterface> interfaces;
    bool hasProxy = false;
    int errorCode = 0;
};

NetworkState ReadNetworkState();

class CWinInetConnection {
 public:
    /// The number of a raised error is the system's code plus this.
    static constexpr quint32 kErrorBase = 0x80040000u + 1000u;
    /// Codes from here on belong to the Internet functions, lower ones to the system.
    static constexpr int kFirstInternetCode = 12001;

    /// `reader` asks the system; tests give their own.
    explicit CWinInetConnection(std::function<NetworkState()> reader = ReadNetworkState);

    /// Reads the state. Throws Error when the system could not be asked; the answers then are those of a machine that
    /// is not connected.
    void Refresh();

    /// Answers of the last Refresh; no network is contacted by it.
    bool IsConnected() const { return isConnected_; }
    const QString& ConnectionName() const { return connectionName_; }
    bool IsConnectionConfigured() const { return isConfigured_; }
    bool IsOffline() const { return !isConnected_; }
    bool UseProxy() const { return useProxy_; }
    bool UseLAN() const { return useLan_; }
    bool UseModem() const { return useModem_; }

    /// The system's text for its error code; empty for an unknown one.
    static QString GetWinApiDesc(int code);

 private:
    static QString GetWinInetDesc(int code);
    /// Nothing happens for a code of 0 or less.
    static void RaiseApiError(const QString& operation, int code);

    std::function<NetworkState()> reader_;
    bool isConnected_ = false;
    QString connectionName_;
    bool useModem_ = false;
    bool useLan_ = false;
    bool useProxy_ = false;
    bool isConfigured_ = false;
};

}  // namespace kelu
