#pragma once

#include "ui/tip_data.h"

#include <afxwin.h>

#include <windows.h>

#include <vector>

/// A tool tip that fades in beside the cursor: the entries, the timers, the placement and the
/// states. It draws nothing; a derived class gives the three drawing operations their bodies.
///
/// An owner window makes it with `new` on its first mouse move, sets the open fields, adds entries
/// and relays every mouse move. From then on the window owns the object: when the window is
/// destroyed the object deletes itself. An owner may instead delete it through the virtual
/// destructor, which takes the window along. The window has no parent and isn't destroyed with its
/// owner's. Everything happens on the thread that made it.
///
/// After the first relay the window stays visible for good. A tip that isn't shown is a window of
/// 1 by 1 pixel that is parked at 0, 10 of the screen.
class CustomToolTip : public CWnd {
  public:
    /// Makes the window, still invisible; whether that worked isn't tested. `owner` gets the
    /// activation whenever the tip's window is given it or loses it, and must outlive the tip.
    CustomToolTip(HWND owner, bool fadeEnabled);
    CustomToolTip(const CustomToolTip&) = delete;
    CustomToolTip& operator=(const CustomToolTip&) = delete;
    ~CustomToolTip() override;

    /// Adds an entry for a control, whose window rectangle is read anew at each hit test. The
    /// control must outlive the entry; an entry that it has already is removed first. Where entries
    /// overlap the one added earlier wins.
    ///
    /// True: the tip owns the content now. Also true with a null pointer, when nothing is done and
    /// the content stays the caller's. False when memory ran out: the content stays the caller's,
    /// and the control has no entry.
    bool AddTip(CWnd* control, TipData* content);

    /// As above, for a rectangle in the owner's client coordinates, right and bottom edges outside.
    /// Each call adds an entry, also for a rectangle that has one; it can't be removed singly.
    bool AddTip(const RECT& rect, TipData* content);

    /// Removes the control's entry and deletes its content; nothing without one. A tip that is
    /// up keeps its index, which then means another entry or none: remove entries while none is up.
    void RemoveTip(CWnd* control);

    /// To be called for every mouse move that the owner sees before it is dispatched. Starts the
    /// delay of 100 ms after which a tip is shown if the cursor hasn't moved meanwhile.
    void RelayMouseMove();

  protected:
    /// Ids of the window's timers.
    enum TimerId : UINT_PTR {
        LeaveTimer = 994,
        FadeTimer = 995,
        HoverTimer = 996,
        IdleTimer = 997
    };

    void PostNcDestroy() override;

    /// Sets `m_width` and `m_height` for the entry.
    virtual void MeasureTip(int index);

    /// Brings the picture up to date: `level` runs from 0.0 to just below 1.0 in the fade, and is
    /// 1.0 without one. May set `m_current` to -1 when the tip can't be drawn.
    virtual void RenderTip(int index, double level);

    /// Puts the finished picture on the device context.
    virtual void PaintTip(CDC* dc);

    bool IsCursorOverCurrentTip() const;
    void HideTip();
    void ShowTipUnderCursor();
    void PlaceTip();
    void CheckCursorLeft();

    afx_msg void OnPaint();
    afx_msg void OnMouseMove(UINT flags, CPoint point);
    afx_msg void OnTimer(UINT_PTR id);
    afx_msg BOOL OnEraseBkgnd(CDC* dc);
    afx_msg void OnActivate(UINT state, CWnd* other, BOOL minimized);
    DECLARE_MESSAGE_MAP()

    bool m_firstRelay = true;    ///< no mouse move has been relayed yet
    bool m_showing = false;      ///< a tip is up; nothing reads it
    int m_leaveCount = 0;        ///< leave timer's ticks since the cursor left: 0, 1 or 2
    POINT m_lastPoint = {0, 0};  ///< the cursor at the last relay, on the screen
  public:
    DWORD m_idlePeriod = 0;  ///< ms; 0: a cursor at rest never dismisses the tip
  protected:
    bool m_idleDismissed = false;  ///< the last dismissal was the idle one
    POINT m_idlePoint = {0, 0};    ///< the cursor at the idle timer's last sample
  public:
    bool m_anchorToItem = false;  ///< place by the entry's rectangle, not by the cursor
  protected:
    // Meant: nothing reads these three; the fade's period and step are constants.
    int m_fadePeriod = 55;
    int m_fadeSteps = 10;
    double m_fadeStep = 0.1;
    HWND m_owner;       ///< from the constructor
    int m_width = 300;  ///< of the tip's window when it is up, in pixels
    int m_height = 100;

  public:
    int m_maxTextWidth = 300;  ///< pixels after which a derived class wraps text
  protected:
    std::vector<TipData*> m_tips;   ///< the content of each entry; owned
    std::vector<CWnd*> m_controls;  ///< the control of each entry, null for a rectangle
    std::vector<RECT> m_rects;      ///< in the owner's client area; zeros for a control
    double m_fadeLevel = 1.0;       ///< of the tip that is up, 0.0 to just over 1.0
    int m_current = -1;             ///< the entry that is up; -1 for none
  public:
    bool m_fadeEnabled;  ///< off: a tip comes up at level 1.0 at once

  private:
    bool AppendEntry(CWnd* control, const RECT& rect, TipData* content);
    RECT EntryRectangle(int index) const;
    int FindEntryAt(POINT point) const;
    void StepFade();
    void CheckCursorRests();
    void ShowAfterHover();
};
