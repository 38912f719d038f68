#include "help/HelpBook.h"
#include "help/HelpPage.h"
#include "look/LookColors.h"
#include "tests/common/FormTest.h"

#include <QAbstractTextDocumentLayout>
#include <QImage>
#include <QPainter>
#include <QTextTable>

using namespace Qt::StringLiterals;

namespace {

class HelpTablesTest : public FormTest {
protected:
    HelpTablesTest() {
        page_.SetBook(HelpBook(Path(u"HelpFile/DutygridHlp.hlp"_s)));
        page_.resize(800, 600);
    }

    /// The tables of the page shown that are more than the coloured ground of a tip.
    QList<QTextTable*> Tables() const {
        QList<QTextTable*> tables;
        for (QTextFrame* frame : page_.document()->rootFrame()->childFrames())
            if (auto* table = qobject_cast<QTextTable*>(frame);
                table != nullptr && table->format().border() > 0)
                tables += table;
        return tables;
    }

    HelpPage page_;
};

TEST_F(HelpTablesTest, RulesAreFineAndTextsStandInTheMiddleOfTheirCells) {
    int tables = 0;
    for (const HelpTopic& topic : page_.Book().Topics()) {
        page_.GoTo(topic.Id);
        for (const QTextTable* table : Tables()) {
            ++tables;
            const QTextTableFormat format = table->format();
            EXPECT_TRUE(format.borderCollapse()) << topic.Id.toStdString();
            EXPECT_EQ(format.border(), 1) << topic.Id.toStdString();
            EXPECT_EQ(format.borderStyle(), QTextFrameFormat::BorderStyle_Solid);
            EXPECT_EQ(format.borderBrush().color(), LookColors::Line);
            for (int row = 0; row < table->rows(); ++row)
                for (int column = 0; column < table->columns(); ++column)
                    EXPECT_EQ(table->cellAt(row, column).format().verticalAlignment(),
                              QTextCharFormat::AlignMiddle)
                        << topic.Id.toStdString() << " " << row << " " << column;
        }
    }
    EXPECT_EQ(tables, 7);
}

/// The widths of the rules that a line across crosses, in pixels.
QList<int> RulesAcross(const QImage& picture, int y) {
    QList<int> rules;
    bool isInRule = false;
    for (int x = 0; x < picture.width(); ++x) {
        const bool isRule = picture.pixelColor(x, y) == LookColors::Line;
        if (isRule && !isInRule)
            rules += 0;
        if (isRule)
            ++rules.last();
        isInRule = isRule;
    }
    return rules;
}

TEST_F(HelpTablesTest, ARuleIsOnePixelWideBetweenTwoCellsToo) {
    page_.GoTo(u"menus"_s);
    QTextDocument& document = *page_.document();
    document.setTextWidth(700);
    QImage picture(document.size().toSize(), QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    document.drawContents(&painter);
    const QList<QTextTable*> tables = Tables();
    ASSERT_EQ(tables.size(), 3);
    for (QTextTable* table : tables) {
        const QRectF place = document.documentLayout()->frameBoundingRect(table);
        constexpr int aboveTheText = 4; // pixels, in the first row
        EXPECT_EQ(RulesAcross(picture, qRound(place.top()) + aboveTheText),
                  QList<int>(table->columns() + 1, 1));
    }
}

} // namespace
