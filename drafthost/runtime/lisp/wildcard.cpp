#include "runtime/lisp/wildcard.h"

#include <windows.h>

#include <vector>

namespace drafthost {

namespace {

/// What one character, or any sequence, has to match.
struct Token {
    enum class Kind { Literal, Digit, Letter, Other, Any, Sequence, Set, NotInSet };

    Kind kind = Kind::Literal;
    std::wstring letters;  ///< the literal; of a set the ends of each range one after the other
};

bool IsDigit(wchar_t letter) {
    return letter >= L'0' && letter <= L'9';
}

bool IsInSet(const std::wstring& ranges, wchar_t letter) {
    for (std::size_t at = 0; at + 1 < ranges.size(); at += 2) {
        if (letter >= ranges[at] && letter <= ranges[at + 1]) return true;
    }
    return false;
}

bool MatchesOne(const Token& token, wchar_t letter) {
    const bool isLetter = IsCharAlphaW(letter) != FALSE;
    switch (token.kind) {
        case Token::Kind::Literal:
            return token.letters[0] == letter;
        case Token::Kind::Digit:
            return IsDigit(letter);
        case Token::Kind::Letter:
            return isLetter;
        case Token::Kind::Other:
            return !isLetter && !IsDigit(letter);
        case Token::Kind::Set:
            return IsInSet(token.letters, letter);
        case Token::Kind::NotInSet:
            return !IsInSet(token.letters, letter);
        case Token::Kind::Any:
        case Token::Kind::Sequence:
            break;
    }
    return true;
}

/// Splits patterns into the tokens of one pattern after the other.
class PatternReader {
  public:
    explicit PatternReader(std::wstring_view text) : m_text(text) {}

    bool HasMore() const { return m_at <= m_text.size(); }

    /// Up to the next comma that separates, or the end.
    std::vector<Token> NextPattern() {
        std::vector<Token> tokens;
        while (m_at < m_text.size() && m_text[m_at] != L',')
            tokens.push_back(NextToken());
        ++m_at;
        return tokens;
    }

    bool SkipNegation() {
        const bool isNegated = m_at < m_text.size() && m_text[m_at] == L'~';
        if (isNegated) ++m_at;
        return isNegated;
    }

  private:
    Token NextToken() {
        const wchar_t letter = m_text[m_at++];
        switch (letter) {
            case L'#':
                return {Token::Kind::Digit, {}};
            case L'@':
                return {Token::Kind::Letter, {}};
            case L'.':
                return {Token::Kind::Other, {}};
            case L'?':
                return {Token::Kind::Any, {}};
            case L'*':
                return {Token::Kind::Sequence, {}};
            case L'[':
                return NextSet();
            case L'`':
                if (m_at < m_text.size()) return {Token::Kind::Literal, {m_text[m_at++]}};
                break;
            default:
                break;
        }
        return {Token::Kind::Literal, {letter}};
    }

    Token NextSet() {
        std::size_t at = m_at;
        Token token{Token::Kind::Set, {}};
        if (at < m_text.size() && m_text[at] == L'~') {
            token.kind = Token::Kind::NotInSet;
            ++at;
        }
        while (at < m_text.size() && m_text[at] != L']') {
            if (m_text[at] == L'`' && at + 1 < m_text.size()) ++at;
            const wchar_t first = m_text[at++];
            const bool isRange =
                at + 1 < m_text.size() && m_text[at] == L'-' && m_text[at + 1] != L']';
            token.letters += first;
            token.letters += isRange ? m_text[at + 1] : first;
            if (isRange) at += 2;
        }
        if (at >= m_text.size()) return {Token::Kind::Literal, L"["};
        m_at = at + 1;
        return token;
    }

    std::wstring_view m_text;
    std::size_t m_at = 0;
};

/// Goes back to the last sequence only, so the time grows with the two lengths and no faster.
bool Matches(const std::wstring& text, const std::vector<Token>& tokens) {
    std::size_t at = 0;
    std::size_t token = 0;
    std::size_t sequence = tokens.size();  // The last sequence passed, and where its text begins.
    std::size_t sequenceStart = 0;
    while (at < text.size()) {
        if (token < tokens.size() && tokens[token].kind == Token::Kind::Sequence) {
            sequence = token++;
            sequenceStart = at;
        } else if (token < tokens.size() && MatchesOne(tokens[token], text[at])) {
            ++token;
            ++at;
        } else if (sequence < tokens.size()) {
            token = sequence + 1;
            at = ++sequenceStart;
        } else {
            return false;
        }
    }
    while (token < tokens.size() && tokens[token].kind == Token::Kind::Sequence)
        ++token;
    return token == tokens.size();
}

}  // namespace

bool MatchesWildcards(const std::wstring& text, std::wstring_view patterns) {
    PatternReader reader(patterns);
    while (reader.HasMore()) {
        const bool isNegated = reader.SkipNegation();
        if (Matches(text, reader.NextPattern()) != isNegated) return true;
    }
    return false;
}

}  // namespace drafthost
