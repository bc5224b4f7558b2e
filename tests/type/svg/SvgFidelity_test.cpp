#include "Silhouette.h"
#include "SvgNodeTesting.h"

#include <QDir>
#include <QRectF>

namespace type::testing {
namespace {

constexpr int kSide = 256;

// Every icon of the corpus is drawn within its 16-unit square viewBox;
// scaled by the artboard to its own height, the mesh lies in the same
// square, y flipped.
class SvgFidelity : public SvgNodeTest {
protected:
    void SetUp() override {
        SvgNodeTest::SetUp();
        ASSERT_TRUE(plug(svgNode::useArtboard).setValue(true));
        ASSERT_TRUE(plug(svgNode::svgSize).setValue(16.0f));
        // The point filter is the user's trade of detail for vertices; at
        // its default it takes the small corner arcs of 16-unit icons.
        ASSERT_TRUE(plug(svgNode::enableDistanceFilter).setValue(false));
    }

    // Returns how many documents were compared.
    int compareFolder(const QString& folder, int curveResolution) {
        const QDir corpus(folder);
        EXPECT_TRUE(plug(svgNode::curveResolution).setValue(curveResolution));
        const QStringList files = corpus.entryList({"*.svg"}, QDir::Files, QDir::Name);
        for (const QString& name : files) {
            const QString path = corpus.filePath(name);
            const std::optional<QImage> reference = referenceSilhouette(path, kSide);
            EXPECT_TRUE(reference) << "rsvg-convert could not render " << name.toStdString();
            if (!reference)
                continue;
            EXPECT_TRUE(plug(svgNode::svgFilepath).setValue(ZString(path.toStdString())));
            const QImage ours = meshSilhouette(mesh(), QRectF(0, 0, 16, 16), kSide);
            const SilhouetteComparison result = compareSilhouettes(*reference, ours);
            EXPECT_GE(result.intersectionOverUnion, 0.99) << name.toStdString();
            EXPECT_EQ(result.meshHoles, result.referenceHoles) << name.toStdString();
        }
        return static_cast<int>(files.size());
    }
};

TEST_F(SvgFidelity, CorpusSilhouettesMatchAnIndependentRenderer) {
    EXPECT_GE(compareFolder(ZYVO_TEST_DATA_DIR "/svg/corpus", 8), 40);
}

// Rings two units wide lose more than 1 % of their area to the chords of
// eight points per quarter circle; twice the points bring them back.
TEST_F(SvgFidelity, ThinRingsMatchAtAFinerResolution) {
    EXPECT_GE(compareFolder(ZYVO_TEST_DATA_DIR "/svg/corpus/thin", 16), 4);
}

} // namespace
} // namespace type::testing
