#pragma once

#include "ui/custom_tool_tip_plus.h"

#include <afxwin.h>

#include <list>

/// A window full of things that have tool tips: buttons, controls that overlap, a painted
/// rectangle, long texts in two scripts, and four small windows in the corners of the screen.
///
/// The tip is made at the first mouse move, and that move is relayed as well. Keys: F switches the
/// fade, A where the tip is placed, I the idle period, E the corner windows; Escape closes. The
/// edit field keeps its letters.
class GalleryWindow : public CWnd {
  public:
    /// Makes and shows the window; FALSE when there is none.
    BOOL Create();

    BOOL PreTranslateMessage(MSG* message) override;

  private:
    /// A control with its tip.
    struct Exhibit {
        CWnd control;
        const wchar_t* tipText;
        DWORD imageId;
    };

    void AddExhibit(CWnd* parent, const wchar_t* className, const wchar_t* caption, DWORD style,
                    const RECT& rect, const wchar_t* tipText, DWORD imageId);
    void AddButtons();
    void AddOverlap();
    void AddLongTexts();
    void AddCorners();

    void EnsureTip();
    void FillTip();
    void RelayMouseMove();
    bool OnKey(const MSG& message);
    void ShowSettings();
    void ShowCorners(bool show);

    afx_msg void OnPaint();
    afx_msg void OnDestroy();
    DECLARE_MESSAGE_MAP()

    std::list<Exhibit> m_exhibits;
    const CWnd* m_field = nullptr;  ///< the exhibit that takes text
    CWnd m_corners[4];
    CWnd m_settings;                     ///< a line that tells how the switches stand
    CustomToolTipPlus* m_tip = nullptr;  ///< its window owns it; null until the first mouse move
    bool m_fade = true;
    bool m_anchor = false;
    bool m_idle = true;
    bool m_cornersShown = true;
};
