#pragma once

#include "ui/custom_tool_tip_plus.h"

#include "gallery/gdiplus_session.h"
#include "ui/tip_bitmaps.h"

#include <gtest/gtest.h>

/// A drawn tool tip with its operations and fields in the open.
class OpenTipPlus : public CustomToolTipPlus {
  public:
    using CustomToolTipPlus::CustomToolTipPlus;
    ~OpenTipPlus() override { ++deletions; }

    using CustomToolTipPlus::FadeTimer;
    using CustomToolTipPlus::HoverTimer;
    using CustomToolTipPlus::IdleTimer;
    using CustomToolTipPlus::LeaveTimer;

    using CustomToolTipPlus::MeasureTip;
    using CustomToolTipPlus::PaintTip;
    using CustomToolTipPlus::RenderTip;

    using CustomToolTipPlus::m_backBuffer;
    using CustomToolTipPlus::m_current;
    using CustomToolTipPlus::m_fadeEnabled;
    using CustomToolTipPlus::m_fadeLevel;
    using CustomToolTipPlus::m_height;
    using CustomToolTipPlus::m_imageHeight;
    using CustomToolTipPlus::m_imageWidth;
    using CustomToolTipPlus::m_leaveCount;
    using CustomToolTipPlus::m_resources;
    using CustomToolTipPlus::m_tips;
    using CustomToolTipPlus::m_width;

    static inline int deletions = 0;
};

/// GDI+ runs from the first call to the program's end: a tip's font family doesn't outlive it.
inline void KeepGdiplusRunning() {
    static const GdiplusSession session;
    ASSERT_TRUE(session.Started());
}

/// A tip without a shown window.
class PlusSceneTest : public testing::Test {
  protected:
    PlusSceneTest() {
        KeepGdiplusRunning();
        tip = new OpenTipPlus(nullptr, GetModuleHandleW(nullptr));
        OpenTipPlus::deletions = 0;
    }
    ~PlusSceneTest() override {
        if (tip != nullptr) tip->DestroyWindow();
    }

    /// Adds an entry whose place doesn't matter; gives its index.
    int AddEntry(const wchar_t* text, DWORD imageId) {
        tip->AddTip(RECT{}, new TipDataPlus(text, imageId));
        return static_cast<int>(tip->m_tips.size()) - 1;
    }

    Gdiplus::ARGB Pixel(int x, int y) const {
        Gdiplus::ARGB color = 0;
        Gdiplus::DllExports::GdipBitmapGetPixel(tip->m_backBuffer, x, y, &color);
        return color;
    }

    OpenTipPlus* tip;  ///< destroyed at the end unless the test has set it to null
};
