#pragma once

#include "clip/ColourspaceParameters.h"
#include "geometry/gandalf/ImageHeaderInfo.h"
#include "parameter/Parameter.h"
#include "parameter/kyn/Frame.h"
#include "parameter/kyn/ParameterSet.h"
#include "parameter/kyn/ProxyScale.h"

#include <QVector>

#include <vector>

namespace VX {

/// One frame of a clip that is no numbered sequence.
struct DiscreteFrame {
    QString fileName; ///< Whole path. Without quotes in the script, so it must hold no line break.
    Kyn::Frame frame = Kyn::Frame(0);
    int view = Kyn::View::defaultViewId(); ///< The id of a clip view.
};

/// How long a reader should keep the frames of a clip. A cache of images gives the values their meaning.
enum class ClipCacheAffinity : int {
    USUAL = 2,
};

/// The values of a VX_ClipInfo. The parameters take no keys; each may differ from clip view to clip view.
struct ClipInfoMembers {
private:
    static constexpr bool STATIC = false;
    static constexpr Kyn::Interpolation HELD = Kyn::INTERPOLATION_CONSTANT;
    static constexpr Kyn::Extrapolation HOLD = Kyn::EXTRAPOLATION_CONSTANT;

public:
    ClipInfoMembers();

    ClipCacheAffinity cacheAffinity_ = ClipCacheAffinity::USUAL; ///< Not part of the script.

    // clang-format off
    Kyn::Parameter<unsigned int> length          {STATIC, QStringLiteral("ClipLength"), 0, HELD, HOLD}; ///< Frames.
    Kyn::Parameter<QString> sourceViewName       {STATIC, QStringLiteral("SourceViewName"), QLatin1String(""), HELD, HOLD};
    Kyn::Parameter<QString> directory            {STATIC, QStringLiteral("ClipDirectory"), QString(), HELD, HOLD};
    Kyn::Parameter<Tov::FSPercentEscapedString> prefix{STATIC, QStringLiteral("ClipPrefix"), {}, HELD, HOLD};
    Kyn::Parameter<Tov::FSPercentEscapedString> suffix{STATIC, QStringLiteral("ClipSuffix"), {}, HELD, HOLD}; ///< With the point.
    Kyn::Parameter<unsigned int> minimumIndex    {STATIC, QStringLiteral("MinimumIndex"), 0, HELD, HOLD};
    Kyn::Parameter<unsigned int> maximumIndex    {STATIC, QStringLiteral("MaximumIndex"), 0, HELD, HOLD};
    Kyn::Parameter<unsigned int> indexWidth_     {STATIC, QStringLiteral("IndexWidth"), 0, HELD, HOLD}; ///< Digits; 0 for no padding.
    Kyn::Parameter<VX_CLIP_MODE> repeatModeBefore_{STATIC, QStringLiteral("ClipModeBefore"), VX_CLIP_MODE_REPEAT, HELD, HOLD};
    Kyn::Parameter<VX_CLIP_MODE> repeatModeAfter_ {STATIC, QStringLiteral("ClipModeAfter"), VX_CLIP_MODE_REPEAT, HELD, HOLD};
    Kyn::Parameter<Kyn::View> clipViewForProjectView_{STATIC, QStringLiteral("ClipViewForProjectView"), {}, HELD, HOLD}; ///< By project view.
    Kyn::Parameter<bool> hasIndex                {STATIC, QStringLiteral("HasIndex"), false, HELD, HOLD}; ///< False for a single still.
    // clang-format on

    VX_BOOL readOnly = VX_FALSE;
    VX_BOOL hidden = VX_FALSE;
    VX_BOOL discreteFrames = VX_FALSE; ///< 1 selects the discrete form of the script.
    VX_BOOL predefined = VX_FALSE;
    bool sparseClip = false;
    QVector<DiscreteFrame> discreteFramesList; ///< In the order of the script; neither sorted nor without doubles.
    VX_BOOL singleFrame = VX_FALSE;
    VX::ColourspaceParameters colourspace;
    VX_BOOL linear = VX_FALSE;
    VX_BOOL reapplyPulldown = VX_TRUE;
    Gan_ImageFormat imageFormatOfFile = GAN_IMAGE_FORMAT_NONE;
    Gan_Type imageDataTypeOfFile = GAN_TYPE_NONE;
    unsigned int processBits = 0;
    Gan_ImageFormat originalImageFormat = GAN_IMAGE_FORMAT_NONE;
    int reserved = 10; ///< Goes with the record; nothing here reads it.
    Gan_ImageHeaderInfo imageHeader;
    Kyn::ProxyScale::Enum proxyScale = Kyn::ProxyScale::FULL;
};

} // namespace VX

/// Where a clip's frames lie on disk and how they are to be read: a numbered sequence, one for each clip view, or a
/// list of single frames.
///
/// A project view is mapped to a clip view before anything is looked up. The boolean behind a view says that the view
/// given is a clip view already.
///
/// The script has two forms, of a sequence and of a discrete clip, and the record lists the members of one of them: a
/// new one those of a sequence. Writing brings the list in line with discreteFrames, reading does not. So a discrete
/// clip's line "SingleFrame" is refused by a new record until that has been written once; who reads scripts sets
/// discreteFrames and writes first.
class VX_ClipInfo : public Kyn::ParameterSet, public VX::ClipInfoMembers {
public:
    VX_DECLARE_TRANSLATION("VX_ClipInfo")

    typedef VX::ClipCacheAffinity CacheAffinity;

    /// Digits of an index beyond which there is no file name: no file system takes a longer one.
    static constexpr unsigned int WIDEST_INDEX = 255;

    VX_ClipInfo();
    /// Takes all values. Names are those of a new record, and it lists the members of a sequence, whatever the source.
    VX_ClipInfo(VX_ClipInfo const & other);
    /// Takes all values and the names. The list of members stays that of the target.
    VX_ClipInfo & operator=(VX_ClipInfo const & other);

    /// Settles the form first; a discrete clip's frames follow behind its members, a line each.
    bool bStreamOut(QTextStream & stream, QString const & opening, bool bUseName) override;
    /// Takes the frames of a discrete clip, too, in either form:
    ///
    ///     Frames.keyframes.append( DiscreteFrame( FILE, FRAME, VIEW ) )
    ///
    /// The file name goes on to the last comma that numbers and a bracket follow, so it may hold commas and blanks.
    /// Without a view the frame is in view 0. Takes time in proportion to the line.
    bool bStreamIn(QString const & line, Kyn::StreamVersion const & version) override;

    /// @name Views
    /// @{
    Kyn::View remapViewIfRequired(Kyn::View const & view, bool bIsClipView) const;
    Kyn::View clipViewForProjectView(Kyn::View const & projectView) const;
    void setClipViewForProjectView(Kyn::View const & projectView, Kyn::View const & clipView);
    /// The first project view that shows a clip view; Kyn::View::INVALID without one.
    Kyn::View projectViewForClipView(Kyn::View const & clipView) const;
    bool isMultiView() const { return sourceViewName.isSplit(); }
    /// Valid until views come or go.
    std::vector<Kyn::View> const & clipViews() const { return sourceViewName.views(); }

    /// Removes a clip view everywhere. Project views that showed it show the first that is left. Warns of each value
    /// that had nothing for the view, and goes on.
    void deleteClipView(Kyn::View const & clipView);
    /// Takes over the views of another clip as `first` and those behind it, at most `count` of them. Every value of
    /// this clip gets data of its own for each of this clip's views before.
    ///
    /// Each of the new view numbers is mapped to itself as a project view, those beyond `count`, which got no values,
    /// included. An invalid first view, and numbers beyond the largest, take nothing.
    void importStreams(VX_ClipInfo const & other, Kyn::View const & first, unsigned int count);
    /// @}

    /// @name Values of a view. A setter writes only what differs, and then sends the change for the clip view.
    /// @{
    QString nameForView(Kyn::View const & view, bool bIsClipView) const;
    QString clipDirectory(Kyn::View const & view, bool bIsClipView) const;
    Tov::FSPercentEscapedString clipPrefix(Kyn::View const & view, bool bIsClipView) const;
    Tov::FSPercentEscapedString clipSuffix(Kyn::View const & view, bool bIsClipView) const;
    unsigned int minIndex(Kyn::View const & view, bool bIsClipView) const;
    unsigned int maxIndex(Kyn::View const & view, bool bIsClipView) const;
    unsigned int indexWidth(Kyn::View const & view, bool bIsClipView) const;
    VX_CLIP_MODE repeatModeBefore(Kyn::View const & view, bool bIsClipView) const;
    VX_CLIP_MODE repeatModeAfter(Kyn::View const & view, bool bIsClipView) const;

    /// The name is that of a clip view.
    void setViewName(Kyn::View const & clipView, QString name);
    void setClipDirectory(QString const & path, Kyn::View const & view, bool bIsClipView);
    void setClipPrefix(Tov::FSPercentEscapedString const & text, Kyn::View const & view, bool bIsClipView);
    void setClipSuffix(Tov::FSPercentEscapedString const & text, Kyn::View const & view, bool bIsClipView);
    void setMinIndex(unsigned int index, Kyn::View const & view, bool bIsClipView);
    void setMaxIndex(unsigned int index, Kyn::View const & view, bool bIsClipView);
    void setIndexWidth(unsigned int digits, Kyn::View const & view, bool bIsClipView);
    void setRepeatModeBefore(VX_CLIP_MODE mode, Kyn::View const & view, bool bIsClipView);
    void setRepeatModeAfter(VX_CLIP_MODE mode, Kyn::View const & view, bool bIsClipView);
    /// @}

    /// @name Files
    /// @{
    /// A file by its index: directory, "/", prefix, index, suffix. The directory loses the slashes and backslashes at
    /// its end, so that of "/" alone the name begins with one "/" again. Without an index, for a still, prefix and
    /// suffix alone. Prefix and suffix enter as the stored, escaped text. Null for an index wider than WIDEST_INDEX.
    QString fileName(unsigned int index, Kyn::View const & clipView) const;
    /// The file of the least index of the default view, whatever view the project shows.
    QString firstFileName() const;
    /// What stands behind the last point of the suffix, with the point or without; all of a suffix without one.
    QString imageFileExtension(Kyn::View const & view, bool bWithPoint, bool bIsClipView) const;
    /// @}

    /// @name Length, in frames
    /// @{
    /// Of a clip view. Of an invalid view, the length of the default view: the largest is looked for, but each turn of
    /// the search reads that one view, and callers have come to rely on it.
    unsigned int lengthForView(Kyn::View const & clipView) const;
    /// For an invalid view, in all clip views.
    void setLength(unsigned int frames, Kyn::View const & clipView);
    /// In each clip view, the number of frames that the files from the least index to the greatest hold. The number of
    /// files wraps at 32 bits if these are the wrong way round.
    void setLengthFromFileCount(VX_INTERLACE_MODE eMode);
    /// @}

    CacheAffinity cacheAffinity() const { return cacheAffinity_; }
    void setCacheAffinity(CacheAffinity affinity) { cacheAffinity_ = affinity; }

    /// A new record for a clip that is made from this one: what the files contain, and of the default view the length,
    /// the name and the repeat modes. All else, colourspace and folder included, is that of a new record.
    VX_ClipInfo copyInfoForDerivedClip() const;

    /// Where the colourspace says that a conversion is required, the type of number that the files are converted to:
    /// float, 8 bits or 16 bits. Otherwise nothing changes.
    void vRebuildDataTypeOfFile();

private:
    enum class Form { SEQUENCE, DISCRETE };

    void init(Form form);
    template <class T>
    T read(Kyn::Parameter<T> const & parameter, Kyn::View const & view, bool bIsClipView) const;
    template <class T>
    void write(Kyn::Parameter<T> & parameter, T const & value, Kyn::View const & view, bool bIsClipView);

    std::vector<Kyn::ParameterWithoutType *> perViewList_; ///< All but the mapping of project views.
};
