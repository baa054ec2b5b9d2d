#pragma once

#include <charconv>
#include <concepts>
#include <cstdint>
#include <functional>
#include <ostream>
#include <sstream>
#include <string>
#include <string_view>

namespace Vantrel {

/** An integer that a text shows in hexadecimal digits, without a prefix. */
struct Hexadecimal {
    std::uint64_t value = 0;
};

/**
 * A text under construction, filled by insertion.
 *
 * Numbers come out as a standard stream in its default format writes them (floats with six significant
 * digits, truth values as 0 and 1), without the stream's cost.
 */
class ReportText {
public:
    ReportText& operator<<(std::string_view piece) {
        text.append(piece);
        return *this;
    }
    ReportText& operator<<(const char* piece) { return *this << std::string_view(piece); }
    ReportText& operator<<(const std::string& piece) { return *this << std::string_view(piece); }
    ReportText& operator<<(char piece) {
        text.push_back(piece);
        return *this;
    }
    ReportText& operator<<(bool value) { return *this << (value ? '1' : '0'); }
    ReportText& operator<<(Hexadecimal number);
    ReportText& operator<<(const void* address);

    template <std::integral Number>
    ReportText& operator<<(Number value) {
        char digits[24];
        return *this << std::string_view(digits, std::to_chars(digits, std::end(digits), value).ptr);
    }

    template <std::floating_point Number>
    ReportText& operator<<(Number value) {
        char digits[40];
        constexpr int significantDigits = 6;
        const auto end =
            std::to_chars(digits, std::end(digits), value, std::chars_format::general, significantDigits).ptr;
        return *this << std::string_view(digits, end);
    }

    /** Whatever else can be written to a standard stream. */
    template <class Value>
    requires(!std::convertible_to<const Value&, std::string_view> && !std::is_arithmetic_v<Value> &&
             !std::is_pointer_v<Value> && !std::is_array_v<Value> &&
             requires(std::ostream & out, const Value& value) { out << value; }) ReportText&
    operator<<(const Value& value) {
        std::ostringstream out;
        out << value;
        return *this << out.str();
    }

    /** What has been inserted so far. */
    const std::string& str() const { return text; }

private:
    std::string text;
};

/**
 * One report: what is inserted goes to standard output in one piece when the report ends, so that reports of
 * two threads never tear a line. Any thread.
 *
 *     Report() << "Initialized " << name << "...\n";
 */
class Report : public ReportText {
public:
    Report() = default;
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;
    ~Report();
};

/**
 * The way of all reports to standard output. Any thread.
 *
 * Reports are gathered and written when somebody flushes (once a frame, before every pause, at the end) or
 * when much has gathered. Until the first `open` they are held back: classes that register themselves report
 * before `main` knows where reports go.
 */
class Reports {
public:
    /** Takes the gathered bytes; runs with the lock of the reports held. */
    using Writer = std::function<void(std::string_view)>;

    /**
     * Sends reports to standard output. An output that can't be written to loses them, and nothing else; one
     * that nobody reads holds the reporting thread up until a stop signal comes.
     */
    static void open();
    /** Sends reports to `writer`; what was held back goes there with the first flush. */
    static void open(Writer writer);
    /** Appends `text` in one piece. */
    static void write(std::string_view text);
    /**
     * Appends what `produce` hands piece by piece to the function that it is given, as one report that need
     * not stand in memory as a whole. `produce` runs with the lock of the reports held, and must not report
     * itself.
     */
    static void writeInPieces(const std::function<void(const Writer&)>& produce);
    /** Hands everything gathered to the writer; does nothing before `open`. */
    static void flush();
    /** True once reports have somewhere to go. */
    static bool isOpen();
};

} // namespace Vantrel
