// String analysis: the break character and the runs of a vertical line.

#include <cstdint>
#include <string>

#include <CKVFont.h>

#include "platform/text/mbcs.h"
#include "text/line_cell.h"

namespace {

using kv::_mbsinc;

enum class RunKind { kNone, kMulti, kSingle };

// Collects characters into runs of one kind.
class RunCollector {
  public:
    explicit RunCollector(CStringArray& parts) : m_Parts(parts) {}

    RunKind Kind() const { return m_Kind; }

    void Append(const std::string& character, RunKind kind) {
        if (m_Kind != kind && m_Kind != RunKind::kNone) {
            Flush();
        }
        m_Kind = kind;
        m_Run += character;
    }

    // A blank ends a run and goes nowhere.
    void Blank() {
        if (m_Kind != RunKind::kNone) {
            Flush();
        }
        m_Kind = RunKind::kNone;
    }

    void Flush() {
        m_Parts.Add(m_Run.c_str());
        m_Run.clear();
    }

  private:
    CStringArray& m_Parts;
    std::string m_Run;
    RunKind m_Kind = RunKind::kNone;
};

}  // namespace

int CKVFont::ChBreakChar(CString& text, wchar_t breakChar) {
    if (breakChar == L' ') {
        return 0;
    }
    // Whether a wchar_t has a sign depends on the processor.
    if (static_cast<std::uint32_t>(breakChar) > 255) {
        return -1;
    }
    // A trail byte is never 0x20, so bytes need no stepping by character.
    const char* const bytes = text;
    for (int i = 0; i < text.GetLength(); ++i) {
        if (bytes[i] == ' ') {
            text.SetAt(i, static_cast<char>(breakChar));
        }
    }
    return 1;
}

void CKVFont::SplitMultiAndSingle(const char* text, CStringArray& parts, CString& multi) {
    RunCollector runs(parts);
    std::string measured;
    for (const char* p = text == nullptr ? "" : text; *p != '\0'; p = _mbsinc(p)) {
        const std::string character(p, _mbsinc(p));
        if (character.size() == 2) {
            measured += character;
            runs.Append(character, RunKind::kMulti);
        } else if (*p == ' ') {
            runs.Blank();
        } else {
            if (runs.Kind() != RunKind::kSingle) {
                measured += kv::text::kLineCell;
            }
            runs.Append(character, RunKind::kSingle);
        }
    }
    runs.Flush();
    multi += measured.c_str();
}
