#include "host/CompositeRenderable.h"
#include "host/NullRenderable.h"
#include "host/VertexGeometry.h"

#include <QPointF>
#include <QString>

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

namespace {

/// Writes its letter each time it is drawn.
class Letter : public VX::Renderable {
public:
    Letter(QString & drawn, char letter) : drawn_(drawn), letter_(QLatin1Char(letter)) {}
    void render() const override { drawn_ += letter_; }

private:
    QString & drawn_;
    QChar letter_;
};

TEST(CompositeRenderable, Elements_addedTwiceOrNull_areDrawnInOrderOfAdding) {
    QString drawn;
    auto const a = boost::make_shared<Letter>(drawn, 'a');
    VX::CompositeRenderable composite;
    composite.render();
    EXPECT_EQ(drawn, QString());
    composite.add(boost::make_shared<Letter>(drawn, 'b'));
    composite.add(a);
    composite.add(nullptr);
    composite.add(boost::make_shared<VX::NullRenderable>());
    composite.add(boost::make_shared<Letter>(drawn, 'c'));
    composite.add(a);
    composite.render();
    EXPECT_EQ(drawn, QStringLiteral("baca"));
}

TEST(CompositeRenderable, Copy_addedTo_leavesTheSourceAlone) {
    QString drawn;
    VX::CompositeRenderable source;
    source.add(boost::make_shared<Letter>(drawn, 'a'));
    auto const copy = boost::make_shared<VX::CompositeRenderable>(source);
    copy->add(boost::make_shared<Letter>(drawn, 'b'));
    source.render();
    EXPECT_EQ(drawn, QStringLiteral("a"));
    source.add(copy);
    source.render();
    EXPECT_EQ(drawn, QStringLiteral("aaab"));
}

class KeptVertices : public VX::VertexGeometry {
public:
    using VX::VertexGeometry::addVertex;
    void render() const override {}
    void clear() override { vertices.clear(); }
    void addVertex(QPointF const & point) override { vertices.append(point); }

    QList<QPointF> vertices;
};

TEST(VertexGeometry, Vertex_givenAsFloats_reachesTheVirtualOperationWidened) {
    KeptVertices kept;
    static_cast<VX::VertexGeometry &>(kept).addVertex(1.5f, 2.5f);
    kept.addVertex(0.1f, -0.0f);
    EXPECT_EQ(kept.vertices, (QList<QPointF>{QPointF(1.5, 2.5), QPointF(static_cast<double>(0.1f), 0.0)}));
}

} // namespace
