#pragma once

#include "base/testing/ManualClock.h"
#include "tests/WaitFor.h"
#include "vantro/store/CoreDataStack.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vantro {

/// A history of its own in a real file.
class StoreTest : public ::testing::Test
{
protected:
    StoreTest();

    /// What another process would see.
    [[nodiscard]] std::unique_ptr<CoreDataStack> openAgain();
    /// What loading the file says is wrong; empty when nothing is.
    [[nodiscard]] static QString loadFailure(const QString& path);
    [[nodiscard]] std::vector<Transcription> rows(const HistoryFilter& filter = {}, int limit = 1000) const;
    /// The transcriptions of what is found.
    [[nodiscard]] QStringList found(const QString& search) const;
    [[nodiscard]] QVariant value(const char* statement) const;

    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("vantro/MainModel.sqlite"));
    doubles::ManualClock clock;
    CoreDataStack store{clock, path};
};

/// "ok", or what is wrong with the file.
QString integrityOf(const CoreDataStack& store);

} // namespace vantro
