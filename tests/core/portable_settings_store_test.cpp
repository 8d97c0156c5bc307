#include "platform/portable/portable_settings_store.h"

#include <gtest/gtest.h>

namespace kvez {
namespace {

TEST(PortableSettingsStore, TextsAreKeptUnderTheirThreeNames) {
  PortableSettingsStore store;
  EXPECT_EQ(store.Get(L"A", L"B", L"C", L"default"), L"default");
  store.Save(L"A", L"B", L"C", L"one");
  store.Save(L"A", L"C", L"B", L"two");
  store.Save(L"A", L"B", L"C", L"three");
  EXPECT_EQ(store.Get(L"A", L"B", L"C", L"default"), L"three");
  EXPECT_EQ(store.Get(L"A", L"C", L"B", L"default"), L"two");
  EXPECT_EQ(store.Get(L"B", L"A", L"C", L"default"), L"default");
}

}  // namespace
}  // namespace kvez
