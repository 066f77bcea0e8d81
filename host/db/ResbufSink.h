#pragma once

/// Groups written into a list (resbuf), as the list functions give them: the coordinates of a point in one node,
/// references as entity names, handles as hexadecimal texts.

#include "DxfGroup.h"
#include "acutads.h"

#include <memory>

class AcDbDatabase;

struct ResbufRelease {
    void operator()(resbuf* chain) const
    {
        if (chain) acutRelRb(chain);
    }
};
/// A list that is released at the end.
using ResbufList = std::unique_ptr<resbuf, ResbufRelease>;

class ResbufSink : public DxfSink
{
public:
    /// `database` resolves handles that were kept as numbers; null leaves references to them null.
    explicit ResbufSink(AcDbDatabase* database) : mDatabase(database) {}

    void real(int code, double value) override;
    void integer(int code, std::int64_t value) override;
    void text(int code, std::string_view utf8) override;
    void handle(int code, AcDbStub* stub) override;
    void binary(int code, std::string_view bytes) override;
    void rawHandle(int code, std::uint64_t value) override;
    void angle(int code, double radians) override { real(code, radians); }
    /// Lists have the normal also where it is the Z axis.
    bool wantsDefault(int code) const override { return code == 210; }
    int version() const override { return 1032; }

    /// Adds the entity name of an object.
    void name(int code, AcDbStub* stub);
    /// Adds a node without a value, such as that of code -3.
    void mark(int code);
    /// The list so far, which becomes the caller's.
    resbuf* release();

private:
    resbuf& add(int code);
    resbuf& link(resbuf* node);

    AcDbDatabase* mDatabase;
    ResbufList mHead;
    resbuf* mLast = nullptr;
    int mPointCode = -1; ///< the code of the point whose other coordinates may follow
};
