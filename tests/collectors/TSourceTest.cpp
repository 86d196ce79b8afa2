#include "common/TSource.h"

#include <gtest/gtest.h>

#include "support/TTempDir.h"

namespace {

TEST(TSource, ReadsFilesBelowItsRoot) {
  const TSource laptop(VSK_TEST_TREES "/laptop//");
  EXPECT_EQ("Linux\n", laptop.ReadText("/proc/sys/kernel/ostype"));
  EXPECT_EQ(std::nullopt, laptop.ReadText("/proc/sys/kernel"));   // a folder
  EXPECT_EQ(std::nullopt, laptop.ReadText("/proc/sys/nothing"));  // absent
  EXPECT_EQ(std::nullopt, laptop.ReadText("/../board/etc/hostname"));
  EXPECT_TRUE(laptop.HasFolder("/sys/firmware/efi"));
  EXPECT_FALSE(laptop.HasFolder("/sys/firmware/acpi"));
  EXPECT_FALSE(laptop.HasFolder("/proc/stat"));
  EXPECT_EQ((std::vector<std::string>{"1", "2", "48213"}), [&] {
    std::vector<std::string> names = laptop.List("/proc");
    names.resize(3);
    return names;
  }());
  EXPECT_TRUE(laptop.List("/absent").empty());
}

TEST(TSource, LinksStayBelowTheRoot) {
  const TSource laptop(VSK_TEST_TREES "/laptop");
  // An absolute link, and a relative one in the middle of a path.
  EXPECT_EQ(laptop.ReadText("/usr/lib/os-release"), laptop.ReadText("/etc/os-release"));
  EXPECT_EQ("10\n", laptop.ReadText("/sys/class/dmi/id/chassis_type"));

  const TTempDir folder;
  folder.MakeLink("one", "two");
  folder.MakeLink("two", "one");
  folder.MakeLink("out", "../../../../etc/hostname");
  const TSource source(folder.Path());
  EXPECT_EQ(std::nullopt, source.ReadText("/one"));
  EXPECT_EQ(std::nullopt, source.ReadText("/out"));
}

}  // namespace
