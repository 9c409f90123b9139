#include "base/AssoArray.h"

#include "math/MathPoint3d.h"

#include <gtest/gtest.h>

#include <vector>

using rasterplan::MathPoint3d;
using ZelkBase::AssoArray;

TEST(AssoArray, FindsNothingWithoutEntries) {
    const AssoArray<int, int> array;
    EXPECT_EQ(array.count(), 0);
    EXPECT_EQ(array.find(0), nullptr);
}

TEST(AssoArray, FindsTheFirstOfEqualKeys) {
    AssoArray<int, char> array;
    array.append(7, 'a');
    array.append(5, 'b');
    array.append(7, 'c');
    ASSERT_NE(array.find(7), nullptr);
    EXPECT_EQ(*array.find(7), 'a');
    EXPECT_EQ(*array.find(5), 'b');
    EXPECT_EQ(array.find(6), nullptr);
}

TEST(AssoArray, KeepsTheOrderOfInsertion) {
    AssoArray<int, int> array;
    for (const int key : {3, 1, 2, 1})
        array.append(key, 10 * key);
    EXPECT_EQ(array.count(), 4);
    std::vector<int> values;
    for (const auto& entry : array)
        values.push_back(entry.key + entry.value);
    EXPECT_EQ(values, (std::vector<int>{33, 11, 22, 11}));
}

TEST(AssoArray, PointKeysAreComparedExactlyInAllComponents) {
    AssoArray<MathPoint3d, int> array;
    array.append({0.1 + 0.2, 0, 0}, 1);
    array.append({0.3, 0, 1e-300}, 2);
    array.append({0.3, 0, 0}, 3);
    ASSERT_NE(array.find({0.3, 0, 0}), nullptr);
    EXPECT_EQ(*array.find({0.3, 0, 0}), 3);
    EXPECT_EQ(array.find({0.3, 1, 0}), nullptr);
}
