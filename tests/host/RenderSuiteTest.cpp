#include "host/RenderSuite.h"
#include "host/VertexGeometry.h"

#include <QMetaMethod>

#include <gtest/gtest.h>

#include <memory>

namespace {

/// Draws nothing, and counts how often it is told to free what it holds. Without Q_OBJECT, as a subclass may be.
class CountingSuite : public VX::RenderSuite {
public:
    typedef QList<VX::VertexInfo> const & Vertices;

    bool bBeginFrame(unsigned int, unsigned int) override { return false; }
    void vEndFrame() override {}
    void vClear(_VX_BUFFER) override {}
    bool bReadPixels(Gan_Image &) const override { return false; }
    void vSetViewport(VX::Rectangle const &) override {}
    void vSetWindow(VX::Rectangle const &) override {}
    void vPushTransform() override {}
    void vPopTransform() override {}
    void vMultiplyTransform(Gan_Matrix33 const &) override {}
    void vSetColour(VX::Colour4 const &) override {}
    void vSetLineWidth(float) override {}
    void vSetPointSize(float) override {}
    void vSetBlend(_VX_FACTOR, _VX_FACTOR) override {}
    void vEnable(_VX_RENDER_STYLE) override {}
    void vDisable(_VX_RENDER_STYLE) override {}
    void vDrawPoints(Vertices) override {}
    void vDrawLines(Vertices) override {}
    void vDrawLineStrip(Vertices) override {}
    void vDrawLineLoop(Vertices) override {}
    void vDrawPolygon(Vertices) override {}
    boost::shared_ptr<VX::VertexGeometry> createGeometry(Primitive) override { return nullptr; }
    unsigned int uiCreateTexture(Gan_Image const &) override { return 0; }
    void vDestroyTexture(unsigned int) override {}
    void vDrawTexture(unsigned int, VX::Rectangle const &) override {}
    void vDrawText(QPointF const &, QString const &) override {}
    void vSetTextHeight(float) override {}

    void destroyResources() override { ++timesFreed; }

    int timesFreed = 0;
};

TEST(RenderSuite, MetaObject_ofTheClass_hasTheOneSlot) {
    QMetaObject const & meta = VX::RenderSuite::staticMetaObject;
    EXPECT_STREQ(meta.className(), "VX::RenderSuite");
    ASSERT_EQ(meta.methodCount() - meta.methodOffset(), 1);
    QMetaMethod const slot = meta.method(meta.methodOffset());
    EXPECT_EQ(slot.methodSignature(), QByteArray("destroyResources()"));
    EXPECT_EQ(slot.methodType(), QMetaMethod::Slot);
    EXPECT_EQ(slot.access(), QMetaMethod::Public);
    EXPECT_EQ(meta.propertyCount(), meta.propertyOffset());
    EXPECT_EQ(VX::RenderSuite::trUtf8("Frame"), VX::RenderSuite::tr("Frame"));
}

TEST(RenderSuite, Subclass_connectedByEitherWay_isToldToFreeItsResources) {
    CountingSuite suite;
    EXPECT_EQ(suite.parent(), nullptr);
    EXPECT_EQ(static_cast<QObject &>(suite).qt_metacast("VX::RenderSuite"), static_cast<VX::RenderSuite *>(&suite));

    auto device = std::make_unique<QObject>();
    QObject::connect(device.get(), &QObject::destroyed, &suite, &VX::RenderSuite::destroyResources);
    QObject::connect(device.get(), SIGNAL(destroyed()), &suite, SLOT(destroyResources()));
    device.reset();
    EXPECT_EQ(suite.timesFreed, 2);
    EXPECT_TRUE(QMetaObject::invokeMethod(&suite, "destroyResources"));
    EXPECT_EQ(suite.timesFreed, 3);
}

} // namespace
