#include "clip/ClipInfo.h"

#include "clip/DiscreteFrameLine.h"
#include "clip/Pulldown.h"

#include <QDebug>
#include <QTextStream>

#include <algorithm>
#include <limits>
#include <set>

namespace {

typedef std::vector<Kyn::ParameterWithoutType *> Parameters;

constexpr QLatin1String FRAMES("Frames.");

Kyn::Context at(Kyn::View const & view) {
    return Kyn::Context().withView(view);
}

/// The views that any of the parameters has, ascending.
std::set<Kyn::View> viewsOf(Parameters const & parameters) {
    std::set<Kyn::View> views;
    for (Kyn::ParameterWithoutType const * parameter : parameters)
        views.insert(parameter->views().begin(), parameter->views().end());
    return views;
}

QString withoutSlashesAtEnd(QString path) {
    while (path.endsWith(QLatin1Char('/')) || path.endsWith(QLatin1Char('\\')))
        path.chop(1);
    return path;
}

} // namespace

VX::ClipInfoMembers::ClipInfoMembers() {
    gan_initialise_image_header_info(GAN_IMAGE_FORMAT_NONE, GAN_TYPE_NONE, &imageHeader);
}

VX_ClipInfo::VX_ClipInfo() : Kyn::ParameterSet(QStringLiteral("Core"), nullptr) {
    init(Form::SEQUENCE);
}

VX_ClipInfo::VX_ClipInfo(VX_ClipInfo const & other)
    : Kyn::ParameterSet(QStringLiteral("Core"), nullptr), VX::ClipInfoMembers(other) {
    init(Form::SEQUENCE);
}

VX_ClipInfo & VX_ClipInfo::operator=(VX_ClipInfo const & other) {
    if (this == &other)
        return *this;
    VX::ClipInfoMembers::operator=(other);
    setDisplayName(other.displayName(), other.shortDisplayName());
    setScriptName(other.scriptName());
    return *this;
}

void VX_ClipInfo::init(Form form) {
    Kyn::View const unbound = Kyn::View::INVALID();
    clearAllLists();
    addField("ReadOnly", readOnly);
    addField("Hidden", hidden);
    addField("DiscreteFrames", discreteFrames);
    addField("Predefined", predefined);
    if (form == Form::SEQUENCE) {
        addField("SparseClip", sparseClip);
        addSplittableParameter(directory, unbound);
        addSplittableParameter(prefix, unbound);
        addSplittableParameter(suffix, unbound);
        addSplittableParameter(minimumIndex, unbound);
        addSplittableParameter(maximumIndex, unbound);
        addSplittableParameter(indexWidth_, unbound);
    } else {
        addField("SingleFrame", singleFrame);
    }
    addField("Colourspace", colourspace.colourspace);
    addField("Gamma", colourspace.gamma);
    addField("Offset", colourspace.offset);
    addField("RefWhite", colourspace.referenceWhite);
    addField("RefBlack", colourspace.referenceBlack);
    addField("SoftClip", colourspace.softClip);
    addField("NativePixelType", colourspace.nativePixelType);
    addField("FloatFormat", colourspace.floatFormat);
    addField("8BitFormat", colourspace.eightBitFormat);
    addField("ImageFormatOfFile", imageFormatOfFile);
    addField("OriginalImageFormat", originalImageFormat);
    addField("ImageDataTypeOfFile", imageDataTypeOfFile);
    addField("ProcessBits", processBits);
    addField("Linear", linear);
    addField("Reapply32Pulldown", reapplyPulldown);
    addField("ProxyScale", proxyScale);
    addSplittableParameter(hasIndex, unbound);
    addSplittableParameter(sourceViewName, unbound);
    addSplittableParameter(length, unbound);
    addSplittableParameter(repeatModeBefore_, unbound);
    addSplittableParameter(repeatModeAfter_, unbound);
    addSplittableParameter(clipViewForProjectView_, unbound);
    perViewList_ = {&sourceViewName, &directory,         &prefix,          &suffix,
                    &minimumIndex,   &maximumIndex,      &indexWidth_,     &hasIndex,
                    &length,         &repeatModeBefore_, &repeatModeAfter_};
}

template <class T>
T VX_ClipInfo::read(Kyn::Parameter<T> const & parameter, Kyn::View const & view, bool bIsClipView) const {
    return parameter.value(at(remapViewIfRequired(view, bIsClipView)));
}

template <class T>
void VX_ClipInfo::write(Kyn::Parameter<T> & parameter, T const & value, Kyn::View const & view, bool bIsClipView) {
    parameter.setStaticValue(value, remapViewIfRequired(view, bIsClipView));
}

// Script

bool VX_ClipInfo::bStreamOut(QTextStream & stream, QString const & opening, bool bUseName) {
    bool const discrete = discreteFrames == VX_TRUE;
    init(discrete ? Form::DISCRETE : Form::SEQUENCE);
    Kyn::ParameterSet::bStreamOut(stream, opening, bUseName);
    if (!discrete)
        return true;
    QString const name = keyInScript();
    QString const frameOpening = name.isEmpty() ? opening : opening + name + QLatin1Char('.');
    for (VX::DiscreteFrame const & one : discreteFramesList)
        stream << frameOpening << FRAMES << "keyframes.append( DiscreteFrame( " << one.fileName << ", " << one.frame
               << ", " << one.view << " ) )" << Qt::endl;
    return true;
}

bool VX_ClipInfo::bStreamIn(QString const & line, Kyn::StreamVersion const & version) {
    if (Kyn::ParameterSet::bStreamIn(line, version))
        return true;
    if (!line.startsWith(FRAMES, Qt::CaseInsensitive))
        return false;
    VX::detail::DiscreteFrameLine const call = VX::detail::parseDiscreteFrame(line);
    if (!call.found)
        return false;
    // Numbers beyond 32 bits are 0, and so is a missing view, even where that is not the default one.
    discreteFramesList.append(
        {call.fileName.toString(), Kyn::Frame(call.frame.toUInt()), static_cast<int>(call.view.toUInt())});
    return true;
}

// Views

Kyn::View VX_ClipInfo::remapViewIfRequired(Kyn::View const & view, bool bIsClipView) const {
    return bIsClipView ? view : clipViewForProjectView(view);
}

Kyn::View VX_ClipInfo::clipViewForProjectView(Kyn::View const & projectView) const {
    return clipViewForProjectView_.value(at(projectView));
}

void VX_ClipInfo::setClipViewForProjectView(Kyn::View const & projectView, Kyn::View const & clipView) {
    clipViewForProjectView_.setStaticValue(clipView, projectView);
}

Kyn::View VX_ClipInfo::projectViewForClipView(Kyn::View const & clipView) const {
    std::vector<Kyn::View> const & views = clipViewForProjectView_.views();
    auto const found = std::find_if(views.begin(), views.end(),
                                    [&](Kyn::View view) { return clipViewForProjectView(view) == clipView; });
    return found == views.end() ? Kyn::View::INVALID() : *found;
}

void VX_ClipInfo::deleteClipView(Kyn::View const & clipView) {
    Kyn::View const gone = clipView; // It may stand in one of the lists that change.
    for (Kyn::ParameterWithoutType * parameter : perViewList_)
        if (!parameter->bRemoveView(gone))
            qWarning().noquote() << "VX_ClipInfo: parameter" << parameter->scriptName() << "did not have view"
                                 << gone.id();
    std::vector<Kyn::View> const projectViews = clipViewForProjectView_.views();
    Kyn::View const fallback = clipViews().empty() ? Kyn::View() : clipViews().front();
    for (Kyn::View const & view : projectViews)
        if (clipViewForProjectView(view) == gone)
            setClipViewForProjectView(view, fallback);
}

void VX_ClipInfo::importStreams(VX_ClipInfo const & other, Kyn::View const & first, unsigned int count) {
    if (!first.isValid())
        return;
    int const start = first.id(); // It may stand in one of the lists that change.
    std::set<Kyn::View> const ownViews = viewsOf(perViewList_);
    for (Kyn::ParameterWithoutType * parameter : perViewList_)
        for (Kyn::View const & view : ownViews)
            parameter->copyView(view, view, parameter);

    std::set<Kyn::View> const newViews = viewsOf(other.perViewList_);
    std::size_t const room = static_cast<std::size_t>(std::numeric_limits<int>::max() - start) + 1;
    std::size_t const copied = std::min<std::size_t>(std::min<std::size_t>(count, newViews.size()), room);
    std::size_t const mapped = std::min(newViews.size(), room);
    auto const nth = [start](std::size_t i) { return Kyn::View(start + static_cast<int>(i)); };
    for (std::size_t p = 0; p < perViewList_.size(); ++p) {
        auto source = newViews.begin();
        for (std::size_t i = 0; i < copied; ++i, ++source)
            perViewList_[p]->copyView(nth(i), *source, other.perViewList_[p]);
    }
    for (std::size_t i = 0; i < mapped; ++i) {
        // An entry of its own, even where the first project view shows this clip view already.
        clipViewForProjectView_.copyView(nth(i), nth(i), &clipViewForProjectView_);
        setClipViewForProjectView(nth(i), nth(i));
    }
}

// Values of a view

QString VX_ClipInfo::nameForView(Kyn::View const & view, bool bIsClipView) const {
    return read(sourceViewName, view, bIsClipView);
}

QString VX_ClipInfo::clipDirectory(Kyn::View const & view, bool bIsClipView) const {
    return read(directory, view, bIsClipView);
}

Tov::FSPercentEscapedString VX_ClipInfo::clipPrefix(Kyn::View const & view, bool bIsClipView) const {
    return read(prefix, view, bIsClipView);
}

Tov::FSPercentEscapedString VX_ClipInfo::clipSuffix(Kyn::View const & view, bool bIsClipView) const {
    return read(suffix, view, bIsClipView);
}

unsigned int VX_ClipInfo::minIndex(Kyn::View const & view, bool bIsClipView) const {
    return read(minimumIndex, view, bIsClipView);
}

unsigned int VX_ClipInfo::maxIndex(Kyn::View const & view, bool bIsClipView) const {
    return read(maximumIndex, view, bIsClipView);
}

unsigned int VX_ClipInfo::indexWidth(Kyn::View const & view, bool bIsClipView) const {
    return read(indexWidth_, view, bIsClipView);
}

VX_CLIP_MODE VX_ClipInfo::repeatModeBefore(Kyn::View const & view, bool bIsClipView) const {
    return read(repeatModeBefore_, view, bIsClipView);
}

VX_CLIP_MODE VX_ClipInfo::repeatModeAfter(Kyn::View const & view, bool bIsClipView) const {
    return read(repeatModeAfter_, view, bIsClipView);
}

void VX_ClipInfo::setViewName(Kyn::View const & clipView, QString name) {
    write(sourceViewName, name, clipView, true);
}

void VX_ClipInfo::setClipDirectory(QString const & path, Kyn::View const & view, bool bIsClipView) {
    write(directory, path, view, bIsClipView);
}

void VX_ClipInfo::setClipPrefix(Tov::FSPercentEscapedString const & text, Kyn::View const & view, bool bIsClipView) {
    write(prefix, text, view, bIsClipView);
}

void VX_ClipInfo::setClipSuffix(Tov::FSPercentEscapedString const & text, Kyn::View const & view, bool bIsClipView) {
    write(suffix, text, view, bIsClipView);
}

void VX_ClipInfo::setMinIndex(unsigned int index, Kyn::View const & view, bool bIsClipView) {
    write(minimumIndex, index, view, bIsClipView);
}

void VX_ClipInfo::setMaxIndex(unsigned int index, Kyn::View const & view, bool bIsClipView) {
    write(maximumIndex, index, view, bIsClipView);
}

void VX_ClipInfo::setIndexWidth(unsigned int digits, Kyn::View const & view, bool bIsClipView) {
    write(indexWidth_, digits, view, bIsClipView);
}

void VX_ClipInfo::setRepeatModeBefore(VX_CLIP_MODE mode, Kyn::View const & view, bool bIsClipView) {
    write(repeatModeBefore_, mode, view, bIsClipView);
}

void VX_ClipInfo::setRepeatModeAfter(VX_CLIP_MODE mode, Kyn::View const & view, bool bIsClipView) {
    write(repeatModeAfter_, mode, view, bIsClipView);
}

// Files

QString VX_ClipInfo::fileName(unsigned int index, Kyn::View const & clipView) const {
    QString number = QLatin1String("");
    if (hasIndex.value(at(clipView))) {
        unsigned int const width = indexWidth(clipView, true);
        if (width > WIDEST_INDEX)
            return QString();
        number = QString::number(index).rightJustified(static_cast<int>(width), QLatin1Char('0'));
    }
    // All four go in at once, so that a "%1" within one of them is left alone.
    return QStringLiteral("%1/%2%3%4")
        .arg(withoutSlashesAtEnd(clipDirectory(clipView, true)), clipPrefix(clipView, true).text(), number,
             clipSuffix(clipView, true).text());
}

QString VX_ClipInfo::firstFileName() const {
    Kyn::View const view(Kyn::View::defaultViewId());
    return fileName(minIndex(view, true), view);
}

QString VX_ClipInfo::imageFileExtension(Kyn::View const & view, bool bWithPoint, bool bIsClipView) const {
    QString const suffixText = clipSuffix(view, bIsClipView).text();
    qsizetype const point = suffixText.lastIndexOf(QLatin1Char('.'));
    return point < 0 ? suffixText : suffixText.mid(bWithPoint ? point : point + 1);
}

// Length

unsigned int VX_ClipInfo::lengthForView(Kyn::View const & clipView) const {
    if (clipView.isValid())
        return length.value(at(clipView));
    unsigned int longest = 0;
    for (std::size_t i = 0; i < length.views().size(); ++i)
        longest = std::max(longest, length.value(at(Kyn::View()))); // The default view's each time, see the header.
    return longest;
}

void VX_ClipInfo::setLength(unsigned int frames, Kyn::View const & clipView) {
    std::vector<Kyn::View> const views = clipView.isValid() ? std::vector<Kyn::View>{clipView} : clipViews();
    for (Kyn::View const & view : views)
        write(length, frames, view, true);
}

void VX_ClipInfo::setLengthFromFileCount(VX_INTERLACE_MODE eMode) {
    std::vector<Kyn::View> const views = clipViews();
    for (Kyn::View const & view : views) {
        unsigned int const files = maxIndex(view, true) - minIndex(view, true) + 1;
        write(length, VX::frameCountFromFileCount(eMode, files), view, true);
    }
}

// Others made from this one

VX_ClipInfo VX_ClipInfo::copyInfoForDerivedClip() const {
    Kyn::View const view;
    VX_ClipInfo derived;
    derived.imageHeader = imageHeader;
    derived.imageFormatOfFile = imageFormatOfFile;
    derived.imageDataTypeOfFile = imageDataTypeOfFile;
    derived.write(derived.length, read(length, view, true), view, true);
    derived.write(derived.sourceViewName, read(sourceViewName, view, true), view, true);
    derived.write(derived.repeatModeBefore_, read(repeatModeBefore_, view, true), view, true);
    derived.write(derived.repeatModeAfter_, read(repeatModeAfter_, view, true), view, true);
    return derived;
}

void VX_ClipInfo::vRebuildDataTypeOfFile() {
    if (!colourspace.bConversionRequired())
        return;
    if (colourspace.floatFormat)
        imageDataTypeOfFile = GAN_TYPE_FLOAT;
    else
        imageDataTypeOfFile = colourspace.eightBitFormat ? GAN_TYPE_UNSIGNED_CHAR : GAN_TYPE_UNSIGNED_SHORT;
}
