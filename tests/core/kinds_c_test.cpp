// The C view of the catalogue that C hosts use to list kinds and build default records.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "grainsmith/kinds.h"
#include "grainsmith/version.h"

TEST(KindsC, ListsTheWholeCatalogueAndNothingBeyond) {
    ASSERT_EQ(grainsmith_kind_count(), 34);
    EXPECT_STREQ(grainsmith_kind_name(0), "Checkerboard");
    EXPECT_STREQ(grainsmith_kind_name(33), "Penrose Rhombus");
    EXPECT_EQ(grainsmith_kind_name(34), nullptr);
    EXPECT_EQ(grainsmith_kind_name(-1), nullptr);
    EXPECT_EQ(grainsmith_kind_implemented(1), 1);   // Wood
    EXPECT_EQ(grainsmith_kind_implemented(33), 1);  // Penrose Rhombus: a complete class no name creates
    EXPECT_EQ(grainsmith_kind_implemented(99), 0);
    EXPECT_STREQ(grainsmith_version(), GRAINSMITH_VERSION_STRING);
}

TEST(KindsC, DefaultRecordIsWrittenOnlyWhenItFits) {
    std::vector<unsigned char> buf(80, 0xAB);
    EXPECT_EQ(grainsmith_default_record("Wood", buf.data(), 59), 60);  // too small: size only
    EXPECT_EQ(buf[0], 0xAB);
    ASSERT_EQ(grainsmith_default_record("Wood", buf.data(), 80), 60);
    EXPECT_EQ(buf[0], 60);
    EXPECT_STREQ(reinterpret_cast<const char*>(buf.data() + 1), "Wood");
    EXPECT_EQ(buf[33], 2);  // major version
    EXPECT_EQ(buf[35], 1);  // interactive update
    float ringScale;
    std::memcpy(&ringScale, buf.data() + 36, 4);
    EXPECT_EQ(ringScale, 6.0f);
    EXPECT_EQ(buf[60], 0xAB);  // nothing past the record

    // Names are exact and case-sensitive, as in records; unknown names write nothing.
    EXPECT_EQ(grainsmith_default_record("wood", buf.data(), 80), 0);
    EXPECT_EQ(grainsmith_default_record("Nothing", buf.data(), 80), 0);
    EXPECT_EQ(grainsmith_default_record(nullptr, buf.data(), 80), 0);
    EXPECT_EQ(grainsmith_default_record("Wood", nullptr, 80), 60);
}
