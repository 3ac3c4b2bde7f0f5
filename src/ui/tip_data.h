#pragma once

/// The content of one entry of a tool tip. The tip that it is added to owns it and deletes it
/// through this destructor.
class TipData {
  public:
    TipData() = default;
    TipData(const TipData&) = delete;
    TipData& operator=(const TipData&) = delete;
    virtual ~TipData() = default;
};
