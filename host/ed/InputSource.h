#pragma once

/// Where the answers to AutoCAD's questions come from: keys typed in advance (scripts, sendStringToExecute, tests), whole
/// answers of acedCommandS, and a reader or the typist (Typist.h), who are asked when both are used up.

#include "adsdef.h"
#include "gepnt3d.h"

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ed
{
/// One answer at the command line.
struct Answer {
    enum class Kind {
        text,      ///< `text`, never empty
        enter,     ///< the empty answer
        cancel,    ///< Esc, or nobody there to answer
        entity,    ///< `name` is an entity
        selection, ///< `name` is a selection set, which stays the giver's
        cursor,    ///< the cursor passes `point`; only those who watch it are told
    };
    Kind kind = Kind::cancel;
    std::wstring text;
    ads_name name = {0, 0};
    AcGePoint3d point; ///< in the UCS

    static Answer ofText(std::wstring_view text);
    static Answer ofName(Kind kind, const ads_name name);
    static Answer ofMove(const AcGePoint3d& point);
    static Answer enter() { return ofText({}); }
    static Answer cancel() { return {}; }
};

/// How an answer is read from the keys. Enter always ends it; Esc (27, 3 or the two characters ^C) drops what was typed
/// before it on the line and is a cancel.
enum class Reading {
    token, ///< ends at a blank; "(...)" and 'COMMAND are carried out, and the result or the next token is the answer
    word,  ///< ends at a blank, taken as it stands
    line,  ///< blanks belong to the answer
};

/// The answers of one document. Text in quotes at the start of a token or word keeps its blanks and loses the quotes.
class InputSource
{
public:
    /// Puts keys behind those that wait. With `echo` they are shown on the command line when they are used.
    void type(std::wstring_view keys, bool echo = true);
    /// Puts a whole answer behind what waits.
    void give(Answer answer);

    /// The answer to a question of an input function, which has shown its prompt. A cancel when nobody answers: never waits
    /// and never fails.
    Answer next(Reading reading);
    /// The same, or a move of the cursor.
    Answer nextOrMove(Reading reading);
    /// One key, as a text of one character, or the next whole answer or move.
    Answer nextKeyOrMove();
    /// The next answer if all its keys are there; for the command prompt, which leaves half a command's name waiting.
    /// With `mayAsk` the reader is asked for the rest of an answer that has begun, as an expression of several lines.
    std::optional<Answer> takeComplete(Reading reading, bool mayAsk = false);

    /// Nothing waits that may be taken now; the reader may have more all the same.
    bool empty() const { return mLevels.back().empty(); }
    /// Whether the last answer was a cancel, as when a command is left by Esc.
    bool lastWasCancel() const { return mLastWasCancel; }
    void forgetCancel() { mLastWasCancel = false; }
    /// Where the cursor was moved to last.
    const std::optional<AcGePoint3d>& cursor() const { return mCursor; }
    /// Drops what waits.
    void clear();
    /// Gives the keys that wait to another source, in front of its own: the rest of a line, when another drawing opens.
    void handOver(InputSource& other);

    /// Is asked for keys when none wait: fills `keys` and returns true, or returns false when there are no more.
    using Reader = std::function<bool(std::wstring& keys)>;
    void setReader(Reader reader) { mReader = std::move(reader); }

    /// Carries out "(...)" and 'COMMAND in the middle of a question. Returns what the answer is then: nothing when the text
    /// is no such thing; an Answer of kind enter when it gave no value and the question stays.
    using Interpreter = std::function<std::optional<Answer>(const std::wstring& text)>;
    void setInterpreter(Interpreter interpreter) { mInterpreter = std::move(interpreter); }

    /// While it lives, answers come from what is given after it was made; what waits before stays waiting.
    class Scope
    {
    public:
        explicit Scope(InputSource& source);
        ~Scope();
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;
        /// The source is gone.
        void abandon() { mSource = nullptr; }

    private:
        InputSource* mSource;
    };
    /// Answers the next question from below the innermost scope: PAUSE of acedCommandS.
    void pauseForUser();

private:
    struct Piece {
        std::wstring keys;
        std::size_t used = 0; ///< how many of the keys are gone
        bool echo = true;
        bool echoRest = false; ///< whoever typed this saw the prompt of its first answer only
        std::optional<Answer> answer;
        bool pause = false;
    };
    using Pieces = std::deque<Piece>;

    Answer ask(Reading reading, bool moves);
    Answer interpreted(Reading reading);
    /// Drops the moves at the front, and keeps where they led.
    void passMoves(Pieces& pieces);
    std::optional<Answer> takeWhole(Pieces& pieces);
    std::optional<Answer> takeKey();
    std::optional<Answer> takeFrom(std::size_t level, Reading reading, bool mayAsk);
    std::optional<Answer> takeKeys(std::size_t level, Reading reading, bool mayAsk);
    /// Takes the first keys of the first piece away.
    static void use(Pieces& pieces, std::size_t count);
    bool askReader(Pieces& pieces);

    std::vector<Pieces> mLevels = std::vector<Pieces>(1);
    Reader mReader;
    Interpreter mInterpreter;
    std::optional<AcGePoint3d> mCursor;
    bool mLastWasCancel = false;
    bool mPassesMoves = true;
};

/// The answers of the current document; without documents those of the program itself.
InputSource& currentInput();
} // namespace ed
