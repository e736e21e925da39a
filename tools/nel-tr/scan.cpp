#include "scan.h"

#include <algorithm>
#include <cctype>

#include "elfData.h"

namespace {

bool isWord(char c)
{
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
}

// Walks C++ source text and puts its string literals together.
class cSourceScan {
public:
    cSourceScan(std::string_view text, cKeyList& keys) : mText(text), mKeys(keys) { }

    void run()
    {
        while (!mText.empty())
            step();
        finish();
    }

private:
    void step()
    {
        char const c = mText.front();
        if (startsWith("//"))
            skipTo("\n", 0);
        else if (startsWith("/*"))
            skipTo("*/", 2);
        else if (c == '"')
            addLiteral();
        else if (c == '\'')
            static_cast<void>(literal('\''));
        else if (isWord(c))
            word();
        else
            other(c);
    }

    // White space and line continuations leave literals side by side.
    void other(char c)
    {
        if (std::isspace(static_cast<unsigned char>(c)) == 0 && c != '\\')
            finish();
        mText.remove_prefix(1);
    }

    // A number with its separators, or a name; the prefix of a literal is one of it.
    void word()
    {
        bool const isNumber = std::isdigit(static_cast<unsigned char>(mText.front())) != 0;
        std::size_t end = 1;
        while (end < mText.size() && (isWord(mText[end]) || (isNumber && mText[end] == '\'')))
            ++end;
        auto const name = mText.substr(0, end);
        mText.remove_prefix(end);
        bool const isPrefix = startsWith("\"") && !isNumber && name.size() <= 3;
        if (!isPrefix)
            finish();
        else if (name.back() == 'R')
            addRawLiteral();
    }

    void addLiteral()
    {
        msLiteral += literal('"');
        mbInside = true;
    }

    void addRawLiteral()
    {
        auto const open = mText.substr(0, 18).find('('); // the delimiter in front has at most 16 characters
        if (open == mText.npos)
            return; // an ordinary literal behind some other name
        std::string const close = ")" + std::string(mText.substr(1, open - 1)) + "\"";
        auto const end = std::min(mText.find(close, open), mText.size());
        msLiteral += mText.substr(open + 1, end - open - 1);
        mbInside = true;
        mText.remove_prefix(std::min(mText.size(), end + close.size()));
    }

    // Steps over a literal and gives what it stands for. One that is not closed ends with its line.
    std::string literal(char quote)
    {
        std::string value;
        mText.remove_prefix(1);
        while (!mText.empty() && mText.front() != quote && mText.front() != '\n') {
            if (mText.front() == '\\' && mText.size() > 1)
                value += escape();
            else
                value += take();
        }
        if (!mText.empty())
            mText.remove_prefix(1);
        return value;
    }

    std::string escape()
    {
        static constexpr std::string_view kNames = "abfnrtv";
        static constexpr std::string_view kValues = "\a\b\f\n\r\t\v";
        mText.remove_prefix(1);
        if (mText.front() >= '0' && mText.front() <= '7')
            return std::string(1, number(8, 3));
        char const c = take();
        if (c == '\n')
            return "";
        if (c == 'x')
            return std::string(1, number(16, mText.size()));
        auto const index = kNames.find(c);
        return std::string(1, index == kNames.npos ? c : kValues[index]);
    }

    char number(unsigned int base, std::size_t digits)
    {
        unsigned int value = 0;
        for (; digits != 0 && !mText.empty(); --digits) {
            auto const c = static_cast<unsigned char>(mText.front());
            unsigned int const digit = std::isdigit(c) != 0 ? c - '0' : (c | 0x20u) - 'a' + 10u;
            if (std::isxdigit(c) == 0 || digit >= base)
                break;
            value = value * base + digit;
            mText.remove_prefix(1);
        }
        return static_cast<char>(value);
    }

    char take()
    {
        char const c = mText.front();
        mText.remove_prefix(1);
        return c;
    }

    void finish()
    {
        auto const marker = cKeyList::kMarker;
        if (mbInside && msLiteral.compare(0, marker.size(), marker) == 0)
            mKeys.add(std::string_view(msLiteral).substr(marker.size()));
        msLiteral.clear();
        mbInside = false;
    }

    bool startsWith(std::string_view part) const { return mText.substr(0, part.size()) == part; }
    void skipTo(std::string_view part, std::size_t behind)
    {
        auto const at = mText.find(part, behind);
        mText.remove_prefix(at == mText.npos ? mText.size() : at + behind);
    }

    std::string_view mText; // what is left
    cKeyList& mKeys;
    std::string msLiteral; // of one or more in a row
    bool mbInside = false;
};

bool isText(char c)
{
    return (c >= ' ' && c <= '~') || c == '\t' || c == '\n' || c == '\r';
}

// Texts up to a zero byte with the marker in front. A constant array needs no zero byte in front of it: there
// may be the end of a number.
void scanBytes(std::string_view bytes, cKeyList& keys)
{
    auto const marker = cKeyList::kMarker;
    for (auto end = bytes.find('\0'); end != bytes.npos; end = bytes.find('\0')) {
        auto const run = bytes.substr(0, end);
        bytes.remove_prefix(end + 1);
        auto const front = run.substr(0, run.find(marker));
        bool const isInside = !front.empty() && std::all_of(front.begin(), front.end(), isText);
        if (front.size() != run.size() && !isInside)
            keys.add(run.substr(front.size() + marker.size()));
    }
}

} // namespace

void scanFile(std::string_view content, cKeyList& keys)
{
    if (isElf(content)) {
        for (auto const section : readOnlyData(content))
            scanBytes(section, keys);
    } else if (content.find('\0') != content.npos) {
        scanBytes(content, keys);
    } else {
        cSourceScan(content, keys).run();
    }
}
