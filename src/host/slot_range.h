#pragma once

/// The rows of a table: the records that a run of slots points to, from the slot behind the begin
/// mark to the one in front of the end mark, low to high. A null slot is skipped and takes no
/// number. The marks themselves are never read. The slots are not owned.
template <typename Record>
class SlotRange {
  public:
    SlotRange(Record* const* beginMark, Record* const* endMark)
        : m_first(beginMark + 1), m_end(endMark) {}

    class Iterator {
      public:
        Iterator(Record* const* slot, Record* const* end) : m_slot(slot), m_end(end) { SkipNull(); }
        Record& operator*() const { return **m_slot; }
        Iterator& operator++() {
            ++m_slot;
            SkipNull();
            return *this;
        }
        bool operator!=(const Iterator& other) const { return m_slot != other.m_slot; }

      private:
        void SkipNull() {
            while (m_slot != m_end && *m_slot == nullptr)
                ++m_slot;
        }

        Record* const* m_slot;
        Record* const* m_end;
    };

    Iterator begin() const { return {m_first, m_end}; }
    Iterator end() const { return {m_end, m_end}; }

  private:
    Record* const* m_first;
    Record* const* m_end;
};
