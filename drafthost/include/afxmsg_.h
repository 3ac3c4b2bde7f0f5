#pragma once

// The entries of a message map. Each macro stands between BEGIN_MESSAGE_MAP and END_MESSAGE_MAP and
// names a handler of the class, which must have just the type that the macro asks for.

/// How a handler is called: what it takes from the message and what becomes of its result.
enum AfxSig : UINT_PTR {
    AfxSig_end = 0,  ///< the last entry of a map
    AfxSig_v_v,      ///< void (): WM_PAINT, WM_DESTROY, WM_NCDESTROY
    AfxSig_v_u_p,    ///< void (UINT, CPoint): mouse messages
    AfxSig_v_up,     ///< void (UINT_PTR): WM_TIMER
    AfxSig_v_i_i,    ///< void (int, int): WM_MOVE, both numbers signed
    AfxSig_v_u_i_i,  ///< void (UINT, int, int): WM_SIZE
    AfxSig_v_u_W_b,  ///< void (UINT, CWnd*, BOOL): WM_ACTIVATE
    AfxSig_b_D,      ///< BOOL (CDC*): WM_ERASEBKGND
    AfxSig_i_c,      ///< int (LPCREATESTRUCT): WM_CREATE
    AfxSig_l_w_l,    ///< LRESULT (WPARAM, LPARAM): ON_MESSAGE
    AfxSigCmd_v,     ///< void (): a command or a control's notification code
};

#define AFX_HANDLER(type, member) ((AFX_PMSG) static_cast<type>(&ThisClass::member))

#define AFX_MESSAGE_ENTRY(message, sig, type, member) \
    {message, 0, 0, 0, sig, AFX_HANDLER(type, member)},

#define ON_WM_PAINT() AFX_MESSAGE_ENTRY(WM_PAINT, AfxSig_v_v, void (CWnd::*)(), OnPaint)
#define ON_WM_DESTROY() AFX_MESSAGE_ENTRY(WM_DESTROY, AfxSig_v_v, void (CWnd::*)(), OnDestroy)
#define ON_WM_NCDESTROY() AFX_MESSAGE_ENTRY(WM_NCDESTROY, AfxSig_v_v, void (CWnd::*)(), OnNcDestroy)
#define ON_WM_MOUSEMOVE() \
    AFX_MESSAGE_ENTRY(WM_MOUSEMOVE, AfxSig_v_u_p, void (CWnd::*)(UINT, CPoint), OnMouseMove)
#define ON_WM_TIMER() AFX_MESSAGE_ENTRY(WM_TIMER, AfxSig_v_up, void (CWnd::*)(UINT_PTR), OnTimer)
#define ON_WM_MOVE() AFX_MESSAGE_ENTRY(WM_MOVE, AfxSig_v_i_i, void (CWnd::*)(int, int), OnMove)
#define ON_WM_SIZE() \
    AFX_MESSAGE_ENTRY(WM_SIZE, AfxSig_v_u_i_i, void (CWnd::*)(UINT, int, int), OnSize)
#define ON_WM_ACTIVATE() \
    AFX_MESSAGE_ENTRY(WM_ACTIVATE, AfxSig_v_u_W_b, void (CWnd::*)(UINT, CWnd*, BOOL), OnActivate)
#define ON_WM_ERASEBKGND() \
    AFX_MESSAGE_ENTRY(WM_ERASEBKGND, AfxSig_b_D, BOOL (CWnd::*)(CDC*), OnEraseBkgnd)
#define ON_WM_CREATE() \
    AFX_MESSAGE_ENTRY(WM_CREATE, AfxSig_i_c, int (CWnd::*)(LPCREATESTRUCT), OnCreate)

/// Any message: `LRESULT member(WPARAM, LPARAM)`.
#define ON_MESSAGE(message, member) \
    AFX_MESSAGE_ENTRY(message, AfxSig_l_w_l, LRESULT (CWnd::*)(WPARAM, LPARAM), member)

/// A command (menu item, accelerator, button click) with the id: `void member()`.
#define ON_COMMAND(id, member) ON_CONTROL(0, id, member)
/// A notification code that the control with the id sends by WM_COMMAND: `void member()`.
#define ON_CONTROL(code, id, member) \
    {WM_COMMAND, code, id, id, AfxSigCmd_v, AFX_HANDLER(void(CCmdTarget::*)(), member)},
