#pragma once

#include "platform/testing/FakeSecretStore.h"
#include "vantro/ai/PromptSettings.h"
#include "vantro/ai/providers/KeychainService.h"
#include "vantro/ai/providers/ProviderConfigurationManager.h"
#include "vantro/text/CleaningSettings.h"

#include <QTemporaryDir>
#include <QVariantList>

#include <gtest/gtest.h>

namespace vantro {

/// What several pages of the settings stand on.
class SettingsPages : public testing::Test
{
protected:
    static QString text(const QVariantList& list, int row, const char* member)
    {
        return list.at(row).toMap().value(QLatin1String(member)).toString();
    }

    QTemporaryDir folder;
    UserDefaults defaults{folder.filePath(QStringLiteral("vantro.ini"))};
    doubles::FakeSecretStore secrets;
    KeychainService keychain{secrets};
    ProviderConfigurationManager manager{defaults, keychain};
    PromptSettings prompts{defaults};
    CleaningSettings cleaning{defaults};
    QStringList questions;  ///< that the user was asked
    bool answersYes = true; ///< to them
    QString refusal;        ///< of the provider; empty when it serves
};

} // namespace vantro
