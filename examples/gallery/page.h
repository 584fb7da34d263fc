#pragma once

#include <string>

#include "entry.h"

namespace gallery {

/// The source of an entry's function, from the text that the program was built from.
std::string SourceOf(const Entry& entry);

/// The page that shows every picture at 100%, enlarged, and beside its code.
class Page {
  public:
    void Add(const Entry& entry, CSize size);
    bool Write(const std::string& file) const;

  private:
    std::string m_Body;
};

}  // namespace gallery
