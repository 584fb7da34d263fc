// String analysis: the break character and the runs of a vertical line.

#include "text/string_runs.h"

#include <cstdint>
#include <utility>

#include <CKVFont.h>

#include "platform/text/mbcs.h"

namespace kv::text {
namespace {

enum class RunKind { kNone, kMulti, kSingle };

// Collects characters into runs of one kind.
class RunCollector {
  public:
    explicit RunCollector(std::vector<std::string>& runs) : m_Runs(runs) {}

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

    void Flush() { m_Runs.push_back(std::exchange(m_Run, {})); }

  private:
    std::vector<std::string>& m_Runs;
    std::string m_Run;
    RunKind m_Kind = RunKind::kNone;
};

}  // namespace

LineRuns CutIntoRuns(const char* text) {
    LineRuns line;
    RunCollector runs(line.runs);
    for (const char* p = text; *p != '\0'; p = _mbsinc(p)) {
        const std::string character(p, _mbsinc(p));
        if (character.size() == 2) {
            line.measured += character;
            runs.Append(character, RunKind::kMulti);
        } else if (*p == ' ') {
            runs.Blank();
        } else {
            if (runs.Kind() != RunKind::kSingle) {
                line.measured += kLineCell;
            }
            runs.Append(character, RunKind::kSingle);
        }
    }
    runs.Flush();
    return line;
}

// A trail byte is never 0x20, so bytes need no stepping by character.
void ReplaceBlanks(CString& text, char breakChar) {
    const char* const bytes = text;
    for (int i = 0; i < text.GetLength(); ++i) {
        if (bytes[i] == ' ') {
            text.SetAt(i, breakChar);
        }
    }
}

}  // namespace kv::text

int CKVFont::ChBreakChar(CString& text, wchar_t breakChar) {
    if (breakChar == L' ') {
        return 0;
    }
    // Whether a wchar_t has a sign depends on the processor.
    if (static_cast<std::uint32_t>(breakChar) > 255) {
        return -1;
    }
    kv::text::ReplaceBlanks(text, static_cast<char>(breakChar));
    return 1;
}

void CKVFont::SplitMultiAndSingle(const char* text, CStringArray& parts, CString& multi) {
    const kv::text::LineRuns line = kv::text::CutIntoRuns(text == nullptr ? "" : text);
    for (const std::string& run : line.runs) {
        parts.Add(run.c_str());
    }
    multi += line.measured.c_str();
}
