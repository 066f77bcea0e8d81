#include <afx.h>

#include <gtest/gtest.h>

#include <memory>

namespace
{
class Shape : public CObject
{
    DECLARE_DYNAMIC(Shape)
};
IMPLEMENT_DYNAMIC(Shape, CObject)

class Circle : public Shape
{
    DECLARE_DYNCREATE(Circle)
};
IMPLEMENT_DYNCREATE(Circle, Shape)

class StoredNote : public CObject
{
    DECLARE_SERIAL(StoredNote)
};
IMPLEMENT_SERIAL(StoredNote, CObject, 3)

class Holder : public CObject
{
    DECLARE_DYNAMIC(Holder)
};
IMPLEMENT_DYNAMIC(Holder, CObject)
} // namespace

TEST(RuntimeClass, KindFollowsTheBaseClassesOnly)
{
    const std::unique_ptr<CObject> circle(RUNTIME_CLASS(Circle)->CreateObject());
    ASSERT_TRUE(circle);
    EXPECT_TRUE(circle->IsKindOf(RUNTIME_CLASS(Shape)));
    EXPECT_TRUE(circle->IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(circle->IsKindOf(RUNTIME_CLASS(Holder)));
    EXPECT_EQ(DYNAMIC_DOWNCAST(Shape, circle.get()), circle.get());
    EXPECT_EQ(DYNAMIC_DOWNCAST(Holder, circle.get()), nullptr);
    EXPECT_EQ(DYNAMIC_DOWNCAST(Holder, nullptr), nullptr);
}

TEST(RuntimeClass, OnlyCreatableClassesCreate)
{
    EXPECT_EQ(RUNTIME_CLASS(Shape)->CreateObject(), nullptr);
    EXPECT_EQ(CRuntimeClass::CreateObject("NoSuchClass"), nullptr);
    const std::unique_ptr<CObject> note(CRuntimeClass::CreateObject(L"StoredNote"));
    ASSERT_TRUE(note);
    EXPECT_TRUE(note->IsSerializable());
    EXPECT_EQ(note->GetRuntimeClass()->m_wSchema, 3u);
}

TEST(RuntimeClass, SecondClassOfANameIsRefused)
{
    CRuntimeClass impostor = *RUNTIME_CLASS(StoredNote);
    CRuntimeClass other = *RUNTIME_CLASS(StoredNote);
    other.m_lpszClassName = "OtherNote";
    {
        const AFX_CLASSINIT refused(&impostor);
        const AFX_CLASSINIT taken(&other);
        EXPECT_EQ(CRuntimeClass::FromName("StoredNote"), RUNTIME_CLASS(StoredNote));
        EXPECT_EQ(CRuntimeClass::FromName("OtherNote"), &other);
    }
    // Leaving takes the class out; the refused one takes nothing with it.
    EXPECT_EQ(CRuntimeClass::FromName("StoredNote"), RUNTIME_CLASS(StoredNote));
    EXPECT_EQ(CRuntimeClass::FromName("OtherNote"), nullptr);
}

TEST(Exception, CatchMacroDeletesAndThrowLastHandsOn)
{
    static int alive;
    struct Counted : CUserException {
        Counted() { ++alive; }
        ~Counted() override { --alive; }
    };
    int caught = 0;
    TRY{TRY{THROW(new Counted);
}
CATCH(CUserException, e)
{
    ++caught;
    THROW_LAST();
}
END_CATCH
}
CATCH_ALL(e)
{
    ++caught;
    EXPECT_EQ(alive, 1);
    EXPECT_TRUE(e->IsKindOf(RUNTIME_CLASS(CUserException)));
}
END_CATCH_ALL
EXPECT_EQ(caught, 2);
EXPECT_EQ(alive, 0);
}

TEST(Exception, MessageIsCutToTheBuffer)
{
    CFileException error(CFileException::fileNotFound, 2, L"acadiso.lin");
    wchar_t text[40];
    EXPECT_TRUE(error.GetErrorMessage(text, 40));
    EXPECT_STREQ(text, L"acadiso.lin was not found.");
    EXPECT_TRUE(error.GetErrorMessage(text, 8));
    EXPECT_STREQ(text, L"acadiso");
    EXPECT_FALSE(error.GetErrorMessage(text, 0));
    EXPECT_FALSE(CUserException().GetErrorMessage(text, 40));
}
