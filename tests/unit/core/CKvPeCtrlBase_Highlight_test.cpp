#include "framework/window/CWnd.h"
#include "framework/window/MainWindow.h"
#include "refhost/db/Entity.h"
#include "refhost/testing/Faults.h"
#include "tests/unit/core/ControlBench.h"

namespace {

class CKvPeCtrlBase_Highlight : public kvtest::ControlTest {
protected:
    CKvPeCtrlBase_Highlight() : entity(MakeEntity()), path(entity, 1, 2) {}
    ~CKvPeCtrlBase_Highlight() override {
        kvhost::Faults::Reset();
        EXPECT_EQ(Drawing().OpenCount(), 0);
    }

    void Highlight(std::initializer_list<KvDbFullSubentPath> list) {
        KvArray<KvDbFullSubentPath> paths;
        for (const KvDbFullSubentPath& item : list) {
            paths.append(item);
        }
        control.highlightSubEntities(paths);
    }

    [[nodiscard]] int CountOf(const KvDbFullSubentPath& asked) const {
        return kvhost::Database::PeekAs<kvhost::Entity>(entity)->HighlightCount(asked);
    }

    KvDbObjectId entity;
    KvDbFullSubentPath path;
};

TEST_F(CKvPeCtrlBase_Highlight, EmptyArray_DoesNothing) {
    Highlight({});
    EXPECT_NO_CALLS(journal);
}

TEST_F(CKvPeCtrlBase_Highlight, PathTwice_IsPushedAndPoppedOnce) {
    Highlight({path, path});
    Highlight({path});
    EXPECT_EQ(CountOf(path), 1);
    EXPECT_EQ(control.m_highlightedPaths.length(), 1);
    control.unhighlightSubEntities();
    EXPECT_EQ(CountOf(path), 0);
    EXPECT_EQ(control.m_highlightedPaths.length(), 0);
    const std::string id = kvtest::ToUtf8(kvhost::AsText(entity));
    EXPECT_CALLS(journal, "kvdbOpenKvDbEntity " + id + " 0", "pushHighlight " + id + " 1 2 2", "close " + id,
                 "kvdbOpenKvDbEntity " + id + " 0", "popHighlight " + id + " 1 2", "close " + id);
}

TEST_F(CKvPeCtrlBase_Highlight, NestedPath_IsHighlightedOnItsLastEntity) {
    KvDbFullSubentPath nested(MakeEntity(), 1, 2);
    nested.objectIds().append(entity);
    Highlight({nested});
    EXPECT_EQ(CountOf(nested), 1);
    control.unhighlightSubEntities();
}

TEST_F(CKvPeCtrlBase_Highlight, EntityThatCannotBeOpened_IsPassedOver) {
    Highlight({KvDbFullSubentPath(Drawing().LayerTableId(), 1, 1), KvDbFullSubentPath(), path});
    EXPECT_EQ(control.m_highlightedPaths.length(), 1);
    EXPECT_EQ(CountOf(path), 1);
    control.unhighlightSubEntities();
}

TEST_F(CKvPeCtrlBase_Highlight, EntityGoneBeforeThePop_IsPassedOver) {
    const KvDbFullSubentPath other(entity, 1, 3);
    Highlight({path, other});
    kvhost::Faults::FailService(L"kvdbOpenKvDbEntity", 1);
    control.unhighlightSubEntities();
    EXPECT_EQ(CountOf(path), 1);
    EXPECT_EQ(CountOf(other), 0);
    EXPECT_EQ(control.m_highlightedPaths.length(), 0);
}

TEST_F(CKvPeCtrlBase_Highlight, MainWindow_GetsTheFocus) {
    const fw::WindowClass windowClass{.name = L"KvTestHighlight"};
    CWnd mainWindow;
    CWnd other;
    mainWindow.Create(windowClass, L"", WS_POPUP | WS_VISIBLE, {0, 0, 10, 10}, nullptr);
    other.Create(windowClass, L"", WS_POPUP | WS_VISIBLE, {20, 0, 30, 10}, nullptr);
    other.SetFocus();
    fw::SetMainWindow(mainWindow);
    Highlight({path});
    EXPECT_EQ(::GetFocus(), mainWindow.m_hWnd);
    fw::SetMainWindow(nullptr);
    control.unhighlightSubEntities();
}

}  // namespace
