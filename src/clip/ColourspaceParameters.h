#pragma once

#include "clip/OwnedTable.h"
#include "foundation/Enumerations.h"
#include "parameter/kyn/ParameterSet.h"

#include <QVector>

#include <cstdint>

namespace VX {

/// How the code values of a clip's files stand for linear light, and the lookup tables that follow from it. Readers and
/// writers of images fetch the tables; nothing here touches a pixel.
///
/// The settings are plain fields, which a clip's script writes without notice: whoever changes one calls generateLUTs
/// before the next table is fetched. No setting is refused; those without sense (a gamma of 0, numbers that are none)
/// give tables without sense, always the same ones.
///
/// What the entries are is said in LookupTableHelperMethods.h, and the curves in ColourspaceCurves.h.
class ColourspaceParameters : public Kyn::ParameterSet {
public:
    VX_DECLARE_TRANSLATION("VX::ColourspaceParameters")

    static constexpr std::uint64_t LUTSIZE16 = 65536;
    static constexpr std::uint64_t LUTSIZE8 = 256;

    /// Linear light: gamma 1 of the power law, which needs no conversion. The set is named "Colorspace", unlike the key
    /// "Colourspace" of a clip's script, and has no members of its own.
    ColourspaceParameters();
    /// Takes the settings, the half table and those of generateLUTs. The other tables on demand start empty, and are
    /// built from the settings: a custom table is not copied.
    ColourspaceParameters(ColourspaceParameters const & other);
    /// Takes everything, a custom table included.
    ColourspaceParameters & operator=(ColourspaceParameters const & other);

    /// Compares the settings and the ten numbers of the two-segment lookups, not the tables. So a record differs from
    /// its twin once only one of them has run generateLUTs, and a NaN makes it differ from everything, itself included.
    bool equals(ColourspaceParameters const & other) const;

    /// Whether codes are anything but linear light: a gamma off 1 by more than 1e-6, a log curve, or float files.
    bool bConversionRequired() const;

    /// Empties all tables, a custom one included, and if a conversion is required makes the tables for float values:
    /// the arrays below and the numbers of their two-segment lookups. Those numbers stay as they were if not.
    void generateLUTs();

    // Tables on demand: built at the first call, by the settings of that moment, and kept. Two threads must not ask for
    // one for the first time at once. Any colourspace but the three named ones gives zeros. The references stay good as
    // long as the record; their entries until generateLUTs, an assignment or a custom table.

    /// Linear light, as float, of each half by its bits: 65536 entries, by gamma alone.
    QVector<float> const & halfToLinear32LUT() const;
    /// Linear light, 65535 at full, of each code of 16 bits, and back.
    QVector<unsigned short> const & clip16ToLinear16LUT() const;
    QVector<unsigned short> const & linear16ToClip16LUT() const;
    /// Linear light of the 256 codes of 8 bits, and back: 65536 entries.
    QVector<unsigned short> const & clip8ToLinear16LUT() const;
    QVector<unsigned char> const & linear16ToClip8LUT() const;

    /// Puts a copy of a table of 65536 entries in the place of that one, until generateLUTs. The length is not checked;
    /// an empty table lets the next call build its own.
    void setCustomLinear16ToClip8LUT(QVector<unsigned char> const & table);

private:
    void init();
    /// All but the tables on demand.
    void takeSettings(ColourspaceParameters const & other);

    mutable QVector<float> halfToLinear32LUT_;
    mutable QVector<unsigned short> clip16ToLinear16LUT_;
    mutable QVector<unsigned short> linear16ToClip16LUT_;
    mutable QVector<unsigned short> clip8ToLinear16LUT_;
    mutable QVector<unsigned char> linear16ToClip8LUT_;

public:
    VX_COLORSPACE colourspace = VX_COLORSPACE_POWER_LAW;
    VX_BOOL floatFormat = VX_FALSE;
    VX_BOOL eightBitFormat = VX_FALSE;
    Gan_Type nativePixelType = GAN_TYPE_NONE;
    float gamma = 1.0f;
    float offset = 0.0f;           ///< Codes on the scale of 1024, like the next three.
    float referenceWhite = 685.0f; ///< The code of full light in film log.
    float referenceBlack = 95.0f;  ///< The code of no light in film log.
    float softClip = 0.0f;         ///< How far below white film log rolls highlights off; 0 or less for not at all.

    // The tables of generateLUTs, absent before. A code of 8 or 16 bits finds its linear value, full light at 1, in the
    // first; a linear value its code in the second, at the entry that LookupTable::TwoSegmentLookup says.
    OwnedTable<float, LUTSIZE16> pfClip16ToLinear;
    OwnedTable<unsigned short, 65536> pusLinearToClip16;
    float fLow16Scale = 0.0f;
    float fLow16Offset = 0.0f;
    float fSplit16 = 0.0f;
    float fHigh16Scale = 0.0f;
    float fHigh16Offset = 0.0f;
    OwnedTable<float, LUTSIZE8> pfClip8ToLinear;
    OwnedTable<unsigned char, 65536> pucLinearToClip8;
    float fLow8Scale = 0.0f;
    float fLow8Offset = 0.0f;
    float fSplit8 = 0.0f;
    float fHigh8Scale = 0.0f;
    float fHigh8Offset = 0.0f;
};

} // namespace VX
