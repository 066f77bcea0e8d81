#include "InputSource.h"

#include "CommandLine.h"
#include "Typist.h"

namespace
{
using ed::Answer;
using ed::Reading;

bool isEnter(wchar_t key)
{
    return key == L'\n' || key == L'\r';
}
bool isBlank(wchar_t key)
{
    return key == L' ' || key == L'\t';
}
bool isEsc(wchar_t key)
{
    return key == 3 || key == 27;
}

/// The keys with the two characters ^C made the one they stand for.
std::wstring withEscapes(std::wstring_view keys)
{
    std::wstring typed;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const bool caret =
            keys[i] == L'^' && i + 1 < keys.size() && (keys[i + 1] == L'C' || keys[i + 1] == L'c');
        typed += caret ? L'\x3' : keys[i];
        if (caret) ++i;
    }
    return typed;
}

/// Reads one answer off a run of keys, key by key.
class KeyReader
{
public:
    explicit KeyReader(Reading reading) : mReading(reading) {}

    /// True when the key ended the answer.
    bool take(wchar_t key)
    {
        if (isEsc(key)) {
            mCancelled = true;
            return true;
        }
        if (isEnter(key) && mDepth <= 0) return true;
        if (isBlank(key) && mReading != Reading::line && mDepth <= 0 && !mQuoted) return true;
        if (!isComment(key)) keep(isEnter(key) ? L' ' : key);
        return false;
    }

    Answer answer() const { return mCancelled ? Answer::cancel() : Answer::ofText(mText); }
    const std::wstring& text() const { return mText; }

private:
    bool isLisp() const { return mReading == Reading::token && !mText.empty() && mText[0] == L'('; }

    void keep(wchar_t key)
    {
        if (isLisp()) return keepOfLisp(key);
        const bool quotes = key == L'"' && mReading != Reading::line && (mText.empty() || mQuoted);
        if (quotes) mQuoted = !mQuoted;
        if (!quotes) mText += key;
        if (isLisp()) mDepth = 1; // this key was the first parenthesis
    }

    /// Parentheses count outside of texts, in which a backslash takes the next key as it stands.
    void keepOfLisp(wchar_t key)
    {
        mText += key;
        const bool escaped = mEscaped;
        mEscaped = mQuoted && !escaped && key == L'\\';
        if (key == L'"' && !escaped) mQuoted = !mQuoted;
        if (!mQuoted) mDepth += key == L'(' ? 1 : key == L')' ? -1 : 0;
    }

    /// A semicolon in an expression begins a comment up to the end of the line.
    bool isComment(wchar_t key)
    {
        mComment = isLisp() && !isEnter(key) && (mComment || (key == L';' && !mQuoted));
        return mComment;
    }

    Reading mReading;
    std::wstring mText;
    int mDepth = 0;
    bool mQuoted = false;
    bool mEscaped = false;
    bool mComment = false;
    bool mCancelled = false;
};
} // namespace

namespace ed
{
Answer Answer::ofText(std::wstring_view text)
{
    Answer made;
    made.kind = text.empty() ? Kind::enter : Kind::text;
    made.text = text;
    return made;
}

Answer Answer::ofName(Kind kind, const ads_name name)
{
    Answer made;
    made.kind = kind;
    ads_name_set(name, made.name);
    return made;
}

Answer Answer::ofMove(const AcGePoint3d& point)
{
    Answer made;
    made.kind = Kind::cursor;
    made.point = point;
    return made;
}

void InputSource::type(std::wstring_view keys, bool echo)
{
    if (keys.empty()) return;
    Piece piece;
    piece.keys = withEscapes(keys);
    piece.echo = echo;
    mLevels.back().push_back(std::move(piece));
}

void InputSource::give(Answer answer)
{
    Piece piece;
    piece.answer = std::move(answer);
    mLevels.back().push_back(std::move(piece));
}

void InputSource::pauseForUser()
{
    Piece piece;
    piece.pause = true;
    mLevels.back().push_back(std::move(piece));
}

void InputSource::clear()
{
    for (Pieces& pieces : mLevels)
        pieces.clear();
}

Answer InputSource::next(Reading reading)
{
    return ask(reading, false);
}
Answer InputSource::nextOrMove(Reading reading)
{
    return ask(reading, true);
}

Answer InputSource::nextKeyOrMove()
{
    mPassesMoves = false;
    std::optional<Answer> answer = takeKey();
    mPassesMoves = true;
    if (!answer) answer = Answer::cancel();
    mLastWasCancel = answer->kind == Answer::Kind::cancel;
    return *answer;
}

std::optional<Answer> InputSource::takeKey()
{
    Pieces& pieces = mLevels.back();
    if (pieces.empty() && !(mLevels.size() == 1 && askReader(pieces))) return std::nullopt;
    if (pieces.front().answer || pieces.front().pause)
        return takeFrom(mLevels.size() - 1, Reading::word, true);
    Piece& piece = pieces.front();
    const wchar_t key = piece.keys[piece.used];
    if (++piece.used == piece.keys.size()) pieces.pop_front();
    return isEsc(key) ? Answer::cancel() : Answer::ofText(std::wstring_view(&key, 1));
}

Answer InputSource::ask(Reading reading, bool moves)
{
    mPassesMoves = !moves;
    Answer answer = interpreted(reading);
    mPassesMoves = true;
    mLastWasCancel = answer.kind == Answer::Kind::cancel;
    return answer;
}

Answer InputSource::interpreted(Reading reading)
{
    for (;;) {
        std::optional<Answer> answer = takeFrom(mLevels.size() - 1, reading, true);
        if (!answer) {
            mLevels.back().clear(); // what was half typed is dropped, as Esc does
            return Answer::cancel();
        }
        if (reading != Reading::token || answer->kind != Answer::Kind::text || !mInterpreter) return *answer;
        std::optional<Answer> result = mInterpreter(answer->text);
        if (!result) return *answer;
        if (result->kind != Answer::Kind::enter) return *result;
    }
}

std::optional<Answer> InputSource::takeComplete(Reading reading, bool mayAsk)
{
    return takeFrom(mLevels.size() - 1, reading, mayAsk);
}

std::optional<Answer> InputSource::takeFrom(std::size_t level, Reading reading, bool mayAsk)
{
    Pieces& pieces = mLevels[level];
    if (!pieces.empty() && pieces.front().pause) {
        pieces.pop_front();
        return level > 0 ? takeFrom(level - 1, reading, mayAsk) : std::nullopt;
    }
    if (mPassesMoves) passMoves(pieces);
    if (!pieces.empty() && pieces.front().answer) return takeWhole(pieces);
    return takeKeys(level, reading, mayAsk);
}

std::optional<Answer> InputSource::takeWhole(Pieces& pieces)
{
    Answer answer = std::move(*pieces.front().answer);
    pieces.pop_front();
    if (answer.kind == Answer::Kind::cursor) mCursor = answer.point;
    return answer;
}

void InputSource::passMoves(Pieces& pieces)
{
    while (!pieces.empty() && pieces.front().answer && pieces.front().answer->kind == Answer::Kind::cursor)
        takeWhole(pieces);
}

std::optional<Answer> InputSource::takeKeys(std::size_t level, Reading reading, bool mayAsk)
{
    Pieces& pieces = mLevels[level];
    KeyReader reader(reading);
    bool shown = false;
    for (std::size_t at = 0;; ++at) {
        if (at == pieces.size() && !(mayAsk && level == 0 && askReader(pieces))) return std::nullopt;
        const Piece& piece = pieces[at];
        if (piece.answer || piece.pause) return std::nullopt;
        shown = shown || piece.echo;
        for (std::size_t i = piece.used; i < piece.keys.size(); ++i) {
            if (!reader.take(piece.keys[i])) continue;
            pieces.erase(pieces.begin(), pieces.begin() + static_cast<std::ptrdiff_t>(at));
            use(pieces, i + 1);
            if (shown) echoAnswer(reader.text());
            return reader.answer();
        }
    }
}

void InputSource::use(Pieces& pieces, std::size_t count)
{
    Piece& piece = pieces.front();
    const bool pair =
        piece.keys[count - 1] == L'\r' && count < piece.keys.size() && piece.keys[count] == L'\n';
    piece.used = pair ? count + 1 : count;
    piece.echo = piece.echo || piece.echoRest;
    if (piece.used == piece.keys.size()) pieces.pop_front();
}

bool InputSource::askReader(Pieces& pieces)
{
    Piece piece;
    if (mReader) {
        piece.echo = false;
        if (!mReader(piece.keys)) piece.keys.clear();
    } else if (std::optional<TypedKeys> typed = askTypist()) {
        piece.keys = std::move(typed->keys);
        piece.echo = typed->echo;
        piece.echoRest = true;
    }
    if (piece.keys.empty()) return false;
    if (!piece.echo) beginLine();
    piece.keys = withEscapes(piece.keys);
    pieces.push_back(std::move(piece));
    return true;
}

void InputSource::handOver(InputSource& other)
{
    Pieces& mine = mLevels.front();
    Pieces& theirs = other.mLevels.front();
    theirs.insert(theirs.begin(), std::make_move_iterator(mine.begin()), std::make_move_iterator(mine.end()));
    mine.clear();
}

InputSource::Scope::Scope(InputSource& source) : mSource(&source)
{
    mSource->mLevels.emplace_back();
}
InputSource::Scope::~Scope()
{
    if (mSource) mSource->mLevels.pop_back();
}
} // namespace ed
