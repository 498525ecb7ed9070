#pragma once

#include <boost/shared_ptr.hpp>

#include <QMap>
#include <QString>

namespace VX {
/// A way to combine two samples of a channel.
///
/// The ids run from 1 and belong to the registry alone: they are not the values of the script's VX_BlendMode.
class BlendMode {
public:
    typedef QMap<int, boost::shared_ptr<BlendMode>> Registry;

    BlendMode(BlendMode const &) = default;
    BlendMode & operator=(BlendMode const &) = default;
    virtual ~BlendMode() = default;

    virtual float blend(float a, float b) const = 0;

    int id() const { return id_; }
    QString const & name() const { return name_; }

    /// All modes by their ids: add, subtract and multiply, made at first use, and what the application has registered.
    static Registry const & registry();
    /// Enters a mode under its id, in place of the one that is there. Call it before other threads read the registry.
    static void registerMode(boost::shared_ptr<BlendMode> const & mode);

protected:
    BlendMode(int id, QString const & name) : id_(id), name_(name) {}

private:
    int id_;
    QString name_;
};

/// Id 1, "Add": a + b, at most 1. A sum below 0 stays.
class AddBlendMode : public BlendMode {
public:
    AddBlendMode();
    float blend(float a, float b) const override;
};

/// Id 2, "Subtract": a - b, at least 0. A difference above 1 stays.
class SubtractBlendMode : public BlendMode {
public:
    SubtractBlendMode();
    float blend(float a, float b) const override;
};

/// Id 3, "Multiply": a b, whatever comes.
class MultiplyBlendMode : public BlendMode {
public:
    MultiplyBlendMode();
    float blend(float a, float b) const override;
};
} // namespace VX
