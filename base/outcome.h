#pragma once

#include <cstdint>

namespace kv {

/// Why something could not be made as it was asked for.
enum class Cause : std::uint8_t {
    kNone,
    kNothingToDraw,  ///< no pixel to work on, or nothing asked for
    kBadArgument,    ///< a kind without a rule, a pointer that is missing, a target without room
    kTooLarge,       ///< more bytes than a bitmap or surface can have
    kNoMemory,
    kNoFile  ///< a file that is missing or cannot be read
};

/// What came of an operation: true when it was done. One that was done all the same has a cause,
/// too, when something simpler stands for what was asked for.
class [[nodiscard]] Outcome {
  public:
    /// Done as asked.
    constexpr Outcome() = default;

    /// Failed.
    constexpr Outcome(Cause cause) : m_Done(false), m_Cause(cause) {}

    static constexpr Outcome DoneDespite(Cause cause) {
        Outcome outcome(cause);
        outcome.m_Done = true;
        return outcome;
    }

    constexpr explicit operator bool() const { return m_Done; }
    constexpr Cause Why() const { return m_Cause; }

  private:
    bool m_Done = true;
    Cause m_Cause = Cause::kNone;
};

}  // namespace kv
