#pragma once

#include "ui/gdiplus_api.h"

/// Keeps GDI+ running for its lifetime, as whoever shows tool tips must: they don't start it.
class GdiplusSession {
  public:
    GdiplusSession() {
        const Gdiplus::GdiplusStartupInput input;
        m_status = Gdiplus::GdiplusStartup(&m_token, &input, nullptr);
    }
    GdiplusSession(const GdiplusSession&) = delete;
    GdiplusSession& operator=(const GdiplusSession&) = delete;
    ~GdiplusSession() {
        if (Started()) Gdiplus::GdiplusShutdown(m_token);
    }

    bool Started() const { return m_status == Gdiplus::Ok; }

  private:
    ULONG_PTR m_token = 0;
    Gdiplus::Status m_status;
};
