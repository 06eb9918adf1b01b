// SPDX-License-Identifier: MIT
#include "output/mail/secret_store.h"

#include <qt6keychain/keychain.h>

#include <QEventLoop>
#include <QTimer>

namespace kelu {

namespace {

const QString kService = QStringLiteral("Kelu");
constexpr int kLongestWait = 60'000;  // ms, in which the user may have to unlock the store

/// The job deletes itself when it has ended.
template <typename Job>
Job* MakeJob(const QString& name) {
    auto* job = new Job(kService);
    job->setKey(name);
    return job;
}

/// Runs events until `job` has ended. Nothing of it may be asked for later.
void WaitFor(QKeychain::Job* job, const std::function<void()>& ended) {
    QEventLoop loop;
    QObject::connect(job, &QKeychain::Job::finished, &loop, [&] {
        ended();
        loop.quit();
    });
    QTimer::singleShot(kLongestWait, &loop, &QEventLoop::quit);
    job->start();
    loop.exec();
}

std::optional<QString> SecretOf(const QKeychain::ReadPasswordJob& job) {
    if (job.error() != QKeychain::NoError) return std::nullopt;
    return job.textData();
}

}  // namespace

void ReadSecret(const QString& name, QObject* receiver,
                const std::function<void(const std::optional<QString>&)>& take) {
    auto* job = MakeJob<QKeychain::ReadPasswordJob>(name);
    QObject::connect(job, &QKeychain::Job::finished, receiver, [job, take] { take(SecretOf(*job)); });
    job->start();
}

std::optional<QString> ReadSecret(const QString& name) {
    std::optional<QString> secret;
    auto* job = MakeJob<QKeychain::ReadPasswordJob>(name);
    WaitFor(job, [&] { secret = SecretOf(*job); });
    return secret;
}

bool WriteSecret(const QString& name, const QString& secret) {
    bool kept = false;
    auto* job = MakeJob<QKeychain::WritePasswordJob>(name);
    job->setTextData(secret);
    WaitFor(job, [&] { kept = job->error() == QKeychain::NoError; });
    return kept;
}

void DropSecret(const QString& name) { MakeJob<QKeychain::DeletePasswordJob>(name)->start(); }

}  // namespace kelu
