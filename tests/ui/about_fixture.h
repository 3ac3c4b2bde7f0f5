#pragma once

#include <gtest/gtest.h>

#include <windows.h>

#include <functional>
#include <string>

/// Puts the built module file in the place of the running module: its handle, its resources and a
/// version of the installation. All are as before at the end.
class AboutFixture : public testing::Test {
  protected:
    AboutFixture();
    ~AboutFixture() override;

    /// Runs the dialog; calls `look` once it stands painted and then clicks OK. How many dialogs
    /// were painted.
    static int Show(int initialTab, const std::function<void(HWND dialog)>& look);

    /// The control of the id at whatever depth in the dialog; null when there is none.
    static HWND Descendant(HWND dialog, int id);
    static std::wstring TextOf(HWND window);
};
