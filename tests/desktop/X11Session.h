#pragma once

#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Workspace.h"
#include "tests/desktop/DesktopUser.h"
#include "tests/desktop/TargetProgram.h"

#include <gmock/gmock.h>

#include <optional>

namespace vantro {

/// A test in a real X session with a user at the keyboard. Whatever the test does, no key may be down after it.
class X11Session : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (const auto missing = desktop::missingDisplay())
            GTEST_SKIP() << *missing;
        user_.emplace();
        connection_.emplace();
        workspace_.emplace(*connection_);
        ASSERT_TRUE(connection_->isOpen());
    }

    void TearDown() override
    {
        if (user_) {
            EXPECT_THAT(user_->keysDown(), ::testing::IsEmpty());
        }
    }

    std::optional<desktop::DesktopUser> user_;
    std::optional<X11Connection> connection_;
    std::optional<X11Workspace> workspace_;
};

} // namespace vantro
