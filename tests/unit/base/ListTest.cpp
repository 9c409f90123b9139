#include "base/List.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>
#include <vector>

using ZelkBase::Error;
using ZelkBase::List;
using ZelkBase::OwningList;
using ZelkBase::Text;

namespace {

// Counts its deletions.
struct Counted {
    explicit Counted(int& counter)
        : deletions(counter) {}
    ~Counted() { ++deletions; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

    int& deletions;
};

} // namespace

TEST(List, StartsWithoutEntries) {
    List<int> list;
    EXPECT_EQ(list.count(), 0);
    EXPECT_EQ(list.head(), nullptr);
    EXPECT_EQ(list.tail(), nullptr);
    EXPECT_TRUE(list.begin() == list.end());
}

TEST(List, FirstEntryIsHeadAndTail) {
    int one = 1;
    List<int> list;
    EXPECT_EQ(list.append(&one), &one);
    EXPECT_EQ(list.count(), 1);
    EXPECT_EQ(list.head(), &one);
    EXPECT_EQ(list.tail(), &one);
}

TEST(List, KeepsTheOrderOfInsertion) {
    int values[] = {3, 1, 2, 1};
    List<int> list;
    for (int& value : values)
        list.append(&value);
    EXPECT_EQ(list.count(), 4);
    EXPECT_EQ(list.head(), &values[0]);
    EXPECT_EQ(list.tail(), &values[3]);
    std::vector<const int*> visited;
    for (const int& value : std::as_const(list))
        visited.push_back(&value);
    EXPECT_EQ(visited, (std::vector<const int*>{&values[0], &values[1], &values[2], &values[3]}));
}

TEST(List, ElementsCanBeChanged) {
    int value = 1;
    List<int> list;
    list.append(&value);
    for (int& element : list)
        element = 5;
    EXPECT_EQ(value, 5);
    EXPECT_TRUE((std::is_same_v<decltype(*std::as_const(list).begin()), const int&>));
    EXPECT_TRUE((std::is_same_v<decltype(std::as_const(list).head()), const int*>));
}

TEST(List, EmptyEntryThrowsOnlyWhereItIsMet) {
    int value = 1;
    List<int> list;
    list.append(&value);
    EXPECT_EQ(list.append(nullptr), nullptr);
    list.append(&value);
    EXPECT_EQ(list.count(), 3);

    auto entry = list.begin();
    EXPECT_EQ(*entry, 1);
    ++entry;
    try {
        (void)*entry;
        ADD_FAILURE() << "the empty entry was dereferenced";
    } catch (const Error& error) {
        EXPECT_EQ(error.message(), Text(L"Null pointer dereferenced"));
    }
    EXPECT_THROW((void)entry.operator->(), Error);
    ++entry;
    EXPECT_EQ(*entry++, 1);
    EXPECT_TRUE(entry == list.end());
}

TEST(List, LeavesItsElementsAlone) {
    int deletions = 0;
    Counted element(deletions);
    { List<Counted>().append(&element); }
    EXPECT_EQ(deletions, 0);
}

TEST(OwningList, DeletesEachElementOnce) {
    int deletions = 0;
    {
        OwningList<Counted> list;
        list.append(deletions);
        list.appendEmpty();
        list.append(deletions);
        EXPECT_EQ(list.count(), 3);

        OwningList<Counted> taken(std::move(list));
        EXPECT_EQ(taken.count(), 3);
        EXPECT_EQ(deletions, 0);
        EXPECT_EQ(list.count(), 0); // NOLINT(bugprone-use-after-move): it is left without entries
        EXPECT_EQ(list.head(), nullptr);
    }
    EXPECT_EQ(deletions, 2);
}

TEST(OwningList, IsNeverAssigned) {
    EXPECT_FALSE((std::is_move_assignable_v<OwningList<int>>));
    EXPECT_FALSE((std::is_copy_assignable_v<OwningList<int>>));
}

TEST(OwningList, EmptyEntryThrowsWhenIterated) {
    OwningList<int> list;
    list.appendEmpty();
    EXPECT_EQ(list.head(), nullptr);
    EXPECT_THROW(
        {
            for (int& element : list)
                element = 1;
        },
        Error);
}

TEST(OwningList, ElementsStayWhereTheyAre) {
    OwningList<int> list;
    const int* first = &list.append(0);
    for (int i = 1; i < 1000; ++i)
        list.append(i);
    EXPECT_EQ(list.head(), first);
    int expected = 0;
    for (const int& value : list)
        EXPECT_EQ(value, expected++);
    EXPECT_EQ(expected, list.count());
}
