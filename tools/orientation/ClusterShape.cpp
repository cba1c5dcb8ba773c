#include "ClusterShape.h"

#include "MissingValue.h"
#include "OrientationText.h"

#include <QCoreApplication>

namespace gkBase {

namespace {

QString translated(const char* pText)
{
    return QCoreApplication::translate("ClusterShape", pText);
}

QString numberText(double dValue, int iDecimals)
{
    return isMissing(dValue) ? undefinedText() : QString::number(dValue, 'f', iDecimals);
}

} // namespace

bool shapeIsDefined(const ClusterShape& shape)
{
    // C is the sum of the other two logarithms: exactly 0 beside a positive one it stands for an unbounded value. Where
    // all three are 0, the records coincide but for the rare case of three eigenvalues equal to the last bit.
    return shape.m_iCount > 0 && !isMissing(shape.m_oParameters.m_dC) && shape.m_oParameters.m_dC != 0.0;
}

ShapeTexts shapeTexts(const ClusterShape& shape, int iDecimals)
{
    const WoodcockParameters& oShape = shape.m_oParameters;
    if (shapeIsDefined(shape)) {
        const bool bHasK = oShape.m_dLnS2S3 > 0.0;
        return {numberText(oShape.m_dLnS1S2, iDecimals), numberText(oShape.m_dLnS2S3, iDecimals),
                bHasK ? numberText(oShape.m_dK, iDecimals) : undefinedText(), numberText(oShape.m_dC, iDecimals),
                bHasK ? QString()
                      : translated(QT_TRANSLATE_NOOP("ClusterShape", "S2 and S3 are equal: K is undefined."))};
    }
    ShapeTexts texts{undefinedText(), undefinedText(), undefinedText(), undefinedText(), {}};
    if (shape.m_iCount == 0 || isMissing(oShape.m_dC)) {
        texts.m_sReason = translated(QT_TRANSLATE_NOOP("ClusterShape", "There are no records."));
    } else if (oShape.m_dLnS1S2 > 0.0) {
        texts.m_sLnS1S2 = numberText(oShape.m_dLnS1S2, iDecimals);
        texts.m_sReason = translated(QT_TRANSLATE_NOOP(
            "ClusterShape", "S3 is 0, because the records lie in one plane: ln(S2/S3) and C are unbounded."));
    } else {
        texts.m_sReason = translated(QT_TRANSLATE_NOOP(
            "ClusterShape", "S2 and S3 are 0, because the records coincide, or the eigenvalues are equal."));
    }
    return texts;
}

} // namespace gkBase
