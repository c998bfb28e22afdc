#include "App/FrameSources/Images/ImageReport.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QImageReader>

#include <array>

namespace quillbox {
namespace {

TEST(ImageReport, NamesTheKindsThatCanBeReadAndThePackageOfThoseThatCannot)
{
    int count = 1;
    std::array<char, 5> name{'t', 'e', 's', 't', '\0'};
    std::array<char*, 2> arguments{name.data(), nullptr};
    const QCoreApplication application(count, arguments.data());
    const auto known = QImageReader::supportedImageFormats();
    const ServiceReport report = ImageReport::make();
    if (known.contains("webp") && known.contains("tiff")) {
        EXPECT_EQ(report.health, ServiceReport::Health::Works);
        EXPECT_EQ(report.used, "PNG, JPEG, GIF, WebP, TIFF");
        EXPECT_TRUE(report.packages.empty());
    } else {
        EXPECT_EQ(report.health, ServiceReport::Health::Limited);
        EXPECT_EQ(report.used.find("PNG, JPEG, GIF"), 0U) << report.used;
        EXPECT_EQ(report.packages.size(), 1U);
    }
}

} // namespace
} // namespace quillbox
