#pragma once

#include <cstddef>
#include <vector>

#include "exception.h"

/// A growable list that owns its elements. Access outside the list throws CInvalidArgException.
/// Pointers into it stay good until it grows or is emptied.
template <typename Type, typename ArgumentType = const Type&>
class CArray {
  public:
    int GetSize() const { return static_cast<int>(m_Items.size()); }
    bool IsEmpty() const { return m_Items.empty(); }

    /// The index of the new element.
    int Add(ArgumentType item) {
        m_Items.push_back(item);
        return GetSize() - 1;
    }
    const Type& GetAt(int index) const { return m_Items[Checked(index)]; }
    Type& GetAt(int index) { return m_Items[Checked(index)]; }
    const Type& operator[](int index) const { return GetAt(index); }
    Type& operator[](int index) { return GetAt(index); }

    /// The first element, null when the list is empty.
    const Type* GetData() const { return m_Items.empty() ? nullptr : m_Items.data(); }
    Type* GetData() { return m_Items.empty() ? nullptr : m_Items.data(); }

    /// Empties the list and frees its storage.
    void RemoveAll() { std::vector<Type>().swap(m_Items); }

  private:
    std::size_t Checked(int index) const {
        if (index < 0 || index >= GetSize()) {
            AfxThrowInvalidArgException();
        }
        return static_cast<std::size_t>(index);
    }

    std::vector<Type> m_Items;
};
