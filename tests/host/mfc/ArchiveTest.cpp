#include "Headless.h"
#include "Thrown.h"

#include <afxcoll.h>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

namespace
{
std::string stored(const std::function<void(CArchive&)>& store)
{
    CMemFile file;
    CArchive archive(&file, CArchive::store, 128);
    store(archive);
    archive.Close();
    std::string bytes(static_cast<size_t>(file.GetLength()), '\0');
    file.SeekToBegin();
    file.Read(&bytes[0], static_cast<UINT>(bytes.size()));
    return bytes;
}

void load(const std::string& bytes, const std::function<void(CArchive&)>& read)
{
    std::string copy = bytes;
    CMemFile file(reinterpret_cast<BYTE*>(&copy[0]), static_cast<UINT>(copy.size()));
    CArchive archive(&file, CArchive::load, 128);
    read(archive);
}

int loadCause(const std::string& bytes, const std::function<void(CArchive&)>& read)
{
    return thrownCause<CArchiveException>([&] { load(bytes, read); });
}

std::string operator""_b(const char* text, size_t length)
{
    return std::string(text, length);
}

/// A node of a graph: it owns its child and refers to a friend.
class Node : public CObject
{
    DECLARE_SERIAL(Node)

public:
    Node() { ++alive; }
    ~Node() override
    {
        delete child;
        --alive;
    }
    void Serialize(CArchive& archive) override
    {
        if (archive.IsStoring()) {
            archive << number << child << other;
        } else {
            schema = archive.GetObjectSchema();
            archive >> number >> child >> other;
        }
    }

    static int alive;
    WORD number = 0;
    Node* child = nullptr;
    Node* other = nullptr;
    UINT schema = 0;
};
int Node::alive = 0;
IMPLEMENT_SERIAL(Node, CObject, VERSIONABLE_SCHEMA | 2)

class Fixed : public CObject
{
    DECLARE_SERIAL(Fixed)
};
IMPLEMENT_SERIAL(Fixed, CObject, 5)

const std::string nodeClass = "\xff\xff\x02\0\x04\0Node"_b;
} // namespace

TEST(Archive, NumbersAreLittleEndianOfTheirDocumentedSize)
{
    const std::string bytes = stored([](CArchive& a) {
        a << BYTE(1) << WORD(0x0203) << LONG(-2) << DWORD(0x04050607) << LONGLONG(-3) << ULONGLONG(9);
        a << 1.0f << -2.0 << true << 'c' << L'\u4e2d' << short(-4) << CPoint(5, 6);
    });
    EXPECT_EQ(bytes, "\x01\x03\x02\xfe\xff\xff\xff\x07\x06\x05\x04\xfd\xff\xff\xff\xff\xff\xff\xff"
                     "\x09\0\0\0\0\0\0\0\0\0\x80\x3f\0\0\0\0\0\0\0\xc0\x01"
                     "c\x2d\x4e\xfc\xff\x05\0\0\0\x06\0\0\0"_b);
    load(bytes, [](CArchive& a) {
        BYTE byte;
        WORD word;
        LONG number;
        DWORD dword;
        LONGLONG big;
        ULONGLONG huge;
        float single;
        double real;
        bool yes;
        char c;
        wchar_t wide;
        short small;
        CPoint point;
        a >> byte >> word >> number >> dword >> big >> huge >> single >> real >> yes >> c >> wide >> small;
        a >> point;
        EXPECT_EQ(number, -2);
        EXPECT_EQ(dword, 0x04050607u);
        EXPECT_EQ(big, -3);
        EXPECT_EQ(single, 1.0f);
        EXPECT_EQ(real, -2.0);
        EXPECT_EQ(wide, L'\u4e2d');
        EXPECT_EQ(small, -4);
        EXPECT_EQ(point, CPoint(5, 6));
        EXPECT_EQ(thrownCause<CArchiveException>([&] { a >> byte; }), CArchiveException::endOfFile);
    });
}

TEST(Archive, TextsHaveMarkLengthAndUtf16Units)
{
    EXPECT_EQ(stored([](CArchive& a) { a << CString(L"A\u4e2d"); }), "\xff\xfe\xff\x02"
                                                                     "A\0\x2d\x4e"_b);
    EXPECT_EQ(stored([](CArchive& a) { a << CStringA("ab"); }), "\x02"
                                                                "ab");
    EXPECT_EQ(stored([](CArchive& a) { a << CString(L"\U0001f600"); }), "\xff\xfe\xff\x02\x3d\xd8\x00\xde"_b);
    for (const int length : {254, 255, 0xfffd, 0xfffe, 0xffff, 70000}) {
        CString text(L'\u6587', length), back;
        const std::string bytes = stored([&](CArchive& a) { a << text; });
        const size_t head = length < 255 ? 4 : length < 0xfffe ? 6 : 10;
        EXPECT_EQ(bytes.size(), head + 2 * static_cast<size_t>(length));
        load(bytes, [&](CArchive& a) { a >> back; });
        EXPECT_EQ(back, text);
    }
}

TEST(Archive, EitherTextFormLoadsIntoEitherClass)
{
    headless::setAnsiCodePage(936);
    load("\x02\xd6\xd0"_b, [](CArchive& a) {
        CString text;
        a >> text;
        EXPECT_EQ(text, L"\u4e2d");
    });
    load("\xff\xfe\xff\x01\x2d\x4e"_b, [](CArchive& a) {
        CStringA text;
        a >> text;
        EXPECT_EQ(text, "\xd6\xd0");
    });
}

TEST(Archive, LinesEndAtEveryKindOfLineEnd)
{
    const std::string bytes = stored([](CArchive& a) { a.WriteString(L"one\r\n\ntwo\rthree"); });
    load(bytes, [](CArchive& a) {
        CString line, all;
        while (a.ReadString(line))
            all += line + L"|";
        EXPECT_EQ(all, L"one||two|three|");
    });
    load(bytes, [](CArchive& a) {
        wchar_t part[3];
        EXPECT_EQ(a.ReadString(part, 2), part);
        EXPECT_STREQ(part, L"on");
    });
}

TEST(Archive, WrongDirectionIsRefused)
{
    const std::string bytes = stored([](CArchive& a) {
        BYTE byte;
        EXPECT_EQ(thrownCause<CArchiveException>([&] { a >> byte; }), CArchiveException::writeOnly);
    });
    EXPECT_EQ(bytes, "");
    EXPECT_EQ(loadCause("xx", [](CArchive& a) { a << BYTE(1); }), CArchiveException::readOnly);
}

TEST(Archive, ClosingALoadPutsTheFileBehindWhatWasRead)
{
    CMemFile file;
    file.Write("\x01\0\x02\0rest", 8);
    file.SeekToBegin();
    CArchive archive(&file, CArchive::load);
    WORD word;
    archive >> word;
    archive.Close();
    EXPECT_EQ(file.GetPosition(), 2u);
}

TEST(Archive, LengthsThatTheDataDoNotBearOutTakeNoMemory)
{
    const auto text = [](CArchive& a) {
        CString t;
        a >> t;
    };
    EXPECT_EQ(loadCause("\xff\xfe\xff\xff\xff\xff\xf0\xff\xff\x7f"
                        "abcdef"_b,
                        text),
              CArchiveException::endOfFile);
    EXPECT_EQ(loadCause("\xff\xff\xff\xff\xff\xff\xff\xff\xff\xff\xff\xff\xff\xff\x7f"_b, text),
              CArchiveException::endOfFile);
    const std::string count = "\xff\xff\xff\xff\xff\xff\xff\xff\xff\xff\xff\xff\xff\x7f"_b;
    CStringArray array;
    CByteArray bytes;
    CMapStringToString map;
    EXPECT_EQ(loadCause(count, [&](CArchive& a) { array.Serialize(a); }), CArchiveException::endOfFile);
    EXPECT_EQ(loadCause(count, [&](CArchive& a) { bytes.Serialize(a); }), CArchiveException::endOfFile);
    EXPECT_EQ(loadCause(count, [&](CArchive& a) { map.Serialize(a); }), CArchiveException::endOfFile);
    EXPECT_LE(array.GetSize(), 4096);
}

TEST(Archive, CollectionsComeBack)
{
    CStringArray array, arrayBack;
    CMapStringToString map, mapBack;
    CStringList list, listBack;
    CDWordArray numbers, numbersBack;
    for (int i = 0; i < 70000; ++i)
        numbers.Add(static_cast<DWORD>(i) * 3);
    array.Add(L"x");
    array.Add(L"");
    map[L"k"] = L"v";
    list.AddTail(L"t");
    const std::string bytes = stored([&](CArchive& a) {
        array.Serialize(a);
        map.Serialize(a);
        list.Serialize(a);
        numbers.Serialize(a);
    });
    load(bytes, [&](CArchive& a) {
        arrayBack.Serialize(a);
        mapBack.Serialize(a);
        listBack.Serialize(a);
        numbersBack.Serialize(a);
    });
    ASSERT_EQ(arrayBack.GetSize(), 2);
    EXPECT_EQ(arrayBack[0], L"x");
    EXPECT_EQ(mapBack[L"k"], L"v");
    EXPECT_EQ(listBack.GetHead(), L"t");
    ASSERT_EQ(numbersBack.GetSize(), 70000);
    EXPECT_EQ(numbersBack[69999], 69999u * 3);
    CStringArray asObject;
    asObject.Add(L"o");
    CObject* loaded = nullptr;
    load(stored([&](CArchive& a) { a << &asObject; }), [&](CArchive& a) { a >> loaded; });
    const std::unique_ptr<CObject> owner(loaded);
    ASSERT_TRUE(loaded && loaded->IsKindOf(RUNTIME_CLASS(CStringArray)));
    EXPECT_EQ(static_cast<CStringArray*>(loaded)->GetAt(0), L"o");
}

TEST(ArchiveObjects, GraphWithSharedAndCircularReferencesComesBack)
{
    {
        Node root;
        root.number = 1;
        root.child = new Node;
        root.child->number = 2;
        root.child->other = &root;
        root.other = root.child;
        const std::string bytes = stored([&](CArchive& a) { a << &root; });
        // New class; number 1; known class 8001 for the child: number 2, no child, other = object 2 (the
        // class is 1); then the root's other = object 3.
        EXPECT_EQ(bytes, nodeClass + "\x01\0\x01\x80\x02\0\0\0\x02\0\x03\0"_b);
        Node* back = nullptr;
        load(bytes, [&](CArchive& a) { a >> back; });
        const std::unique_ptr<Node> owner(back);
        ASSERT_TRUE(back && back->child);
        EXPECT_EQ(back->child->other, back);
        EXPECT_EQ(back->other, back->child);
        EXPECT_EQ(back->schema, 2u);
    }
    EXPECT_EQ(Node::alive, 0);
}

TEST(ArchiveObjects, VersionableClassLearnsTheStoredSchema)
{
    Node* back = nullptr;
    load("\xff\xff\x01\0\x04\0Node\x07\0\0\0\0\0"_b, [&](CArchive& a) { a >> back; });
    const std::unique_ptr<Node> owner(back);
    ASSERT_TRUE(back);
    EXPECT_EQ(back->schema, 1u);
    EXPECT_EQ(back->number, 7);
}

TEST(ArchiveObjects, DamageHasItsCauseAndLeavesNoObjectBehind)
{
    const auto any = [](CArchive& a) {
        CObject* object = nullptr;
        a >> object;
    };
    const auto node = [](CArchive& a) {
        Node* object = nullptr;
        a >> object;
    };
    struct Case {
        const char* what;
        std::string bytes;
        int cause;
    };
    const Case cases[] = {
        {"unknown class", "\xff\xff\x02\0\x04\0Nope\0\0"_b, CArchiveException::badClass},
        {"class name too long", "\xff\xff\x02\0\xff\xff"_b, CArchiveException::badClass},
        {"schema of a fixed class", "\xff\xff\x04\0\x05\0Fixed"_b, CArchiveException::badSchema},
        {"object never stored", "\x09\0"_b, CArchiveException::badIndex},
        {"class never stored", "\x09\x80"_b, CArchiveException::badIndex},
        {"object index of a class", nodeClass + "\x01\0\x01\0"_b, CArchiveException::badIndex},
        {"class index of an object", nodeClass + "\x01\0\x02\x80"_b, CArchiveException::badIndex},
        {"big index", "\xff\x7f\xff\xff\xff\x7f"_b, CArchiveException::badIndex},
        {"ends in the second child", nodeClass + "\x01\0\x01\x80\x02\0"_b, CArchiveException::endOfFile},
    };
    for (const Case& damaged : cases) {
        EXPECT_EQ(loadCause(damaged.bytes, any), damaged.cause) << damaged.what;
        EXPECT_EQ(Node::alive, 0) << damaged.what;
    }
    EXPECT_EQ(loadCause("\xff\xff\x05\0\x05\0Fixed"_b, node), CArchiveException::badClass);
}

TEST(ArchiveObjects, EndlessNestingIsRefused)
{
    std::string bytes = nodeClass + "\x01\0"_b;
    for (int i = 0; i < 200000; ++i)
        bytes += "\x01\x80\x02\0"_b;
    EXPECT_EQ(loadCause(bytes,
                        [](CArchive& a) {
                            Node* object = nullptr;
                            a >> object;
                        }),
              CArchiveException::genericException);
    EXPECT_EQ(Node::alive, 0);
}

TEST(ArchiveObjects, ReferenceToADeletedHalfReadObjectIsRefused)
{
    const std::string bytes = nodeClass + "\x01\0\x01\x80\x02\0\x63\0\x03\0"_b;
    load(bytes, [](CArchive& a) {
        Node* object = nullptr;
        EXPECT_EQ(thrownCause<CArchiveException>([&] { a >> object; }), CArchiveException::badIndex);
        EXPECT_EQ(thrownCause<CArchiveException>([&] { a >> object; }), CArchiveException::badIndex);
    });
    EXPECT_EQ(Node::alive, 0);
}

TEST(ArchiveObjects, ClassWithoutASchemaIsNotStored)
{
    CObject* const plain = RUNTIME_CLASS(CMapStringToPtr)->CreateObject();
    const std::unique_ptr<CObject> owner(plain);
    stored([&](CArchive& a) { EXPECT_EQ(thrown<CNotSupportedException>([&] { a << plain; }), 1); });
}
