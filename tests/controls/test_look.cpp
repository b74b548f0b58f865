#include <QDialogButtonBox>
#include <QMdiArea>
#include <QMdiSubWindow>
#include "controls/boxes.h"
#include "controls/listview.h"
#include "controls/theme.h"
#include "support/cases.h"
#include "support/contrast.h"

using namespace controls;
using support::contrast;

namespace {

// The two colours that cover most and differ most on the picture: the ground and the letters on it.
double contrastSeen(QWidget* widget, const QRect& part = {}) {
    const QImage image = widget->grab(part.isNull() ? widget->rect() : part).toImage();
    QHash<QRgb, int> counts;
    const QRect inside = image.rect().adjusted(4, 4, -4, -4);
    for (int y = inside.top(); y <= inside.bottom(); ++y)
        for (int x = inside.left(); x <= inside.right(); ++x) ++counts[image.pixel(x, y)];
    const QRgb ground = std::max_element(counts.keyValueBegin(), counts.keyValueEnd(), [](auto a, auto b) {
                            return a.second < b.second;
                        })->first;
    double best = 1;
    for (const QRgb ink : counts.keys()) best = std::max(best, contrast(QColor(ink), QColor(ground)));
    return best;
}

const QStringList symbols{"prev",    "next",    "search",   "add",       "edit",         "delete",  "save",
                          "cancel",  "exit",    "print",    "photo-add", "photo-remove", "phone",   "mobile",
                          "mail",    "web",     "category", "calendar",  "user",         "lock",    "info",
                          "warning", "logoff",  "settings", "notes",     "card",         "list",    "fields",
                          "columns", "journal", "movement", "link",      "office",       "restore", "dorvalist"};

}  // namespace

class TestLook : public QObject {
    Q_OBJECT

    // Once in each theme.
    static void inThemes(const std::function<void()>& check) {
        for (const ThemeKind kind : {ThemeKind::Light, ThemeKind::Dark}) {
            const support::InCase in(kind == ThemeKind::Dark ? "dark" : "light");
            applyTheme(*qApp, kind);
            QCOMPARE(theme().dark, kind == ThemeKind::Dark);
            check();
        }
    }

private slots:
    void initTestCase() {
        // The desktop's palette counts, not the one that an earlier choice of the user's has put over it.
        const bool desktopIsDark = QApplication::palette().color(QPalette::Window).lightness() < 128;
        applyTheme(*qApp, desktopIsDark ? ThemeKind::Light : ThemeKind::Dark);
        applyTheme(*qApp, ThemeKind::Automatic);
        QCOMPARE(theme().dark, desktopIsDark);
    }

    void coloursAreReadable() {
        inThemes([] {
            const Theme& t = theme();
            for (const QColor& ground : {t.window, t.base, t.alternateBase}) {
                for (const QColor& ink : {t.text, t.mutedText, t.danger})
                    QVERIFY2(contrast(ink, ground) >= 4.5, qPrintable(ink.name() + " on " + ground.name()));
            }
            QVERIFY(contrast(t.text, t.highlightBox) >= 4.5);
            QVERIFY(contrast(t.mutedText, t.highlightBox) >= 4.5);
            QVERIFY(contrast(t.accentText, t.accent) >= 4.5);
            // The frames of boxes and check boxes.
            for (const QColor& ground : {t.window, t.base, t.alternateBase})
                QVERIFY2(contrast(t.border, ground) >= 3, qPrintable(t.border.name() + " on " + ground.name()));
        });
    }

    // As drawn, not as meant: the style sheet has the last word.
    void lockedAndDisabledStayReadable() {
        inThemes([] {
            const QString text = "ΗΗΗΗΗΗΗ";
            TextBox locked, disabled;
            MemoBox memo;
            QComboBox combo;
            QPushButton button(text);
            QCheckBox check(text);
            QLabel label(text);
            for (TextBox* box : {&locked, &disabled}) box->setText(text);
            memo.setText(text);
            combo.addItem(text);
            locked.setReadOnly(true);
            memo.setReadOnly(true);
            for (QWidget* widget : QWidgetList{&disabled, &combo, &button, &check, &label}) widget->setEnabled(false);
            for (QWidget* widget : QWidgetList{&locked, &disabled, &memo, &combo, &button, &check, &label}) {
                widget->resize(140, 40);
                QVERIFY2(contrastSeen(widget) >= 4.5, widget->metaObject()->className());
            }
            QMdiArea area;
            QMdiSubWindow* inside = area.addSubWindow(new QWidget);
            inside->resize(200, 100);
            QVERIFY(contrastSeen(inside, {168, 0, 32, 30}) >= 4.5);  // the cross that closes it
        });
    }

    // Of a list that was filled under another theme.
    void rowsOfListsStayReadable() {
        applyTheme(*qApp, ThemeKind::Light);
        ListView list;
        list.setColumns({{"Α", "Στήλη"}});
        list.setRows({{{"ΗΗΗΗΗΗΗ"}, 0}, {{"ΗΗΗΗΗΗΗ"}, 1, ListInk::Danger}, {{"ΗΗΗΗΗΗΗ"}, 2, ListInk::Muted}});
        list.resize(200, 200);
        list.show();
        inThemes([&list] {
            for (int selected = -1; selected < list.count(); ++selected) {
                selected < 0 ? list.clearSelection() : list.selectRow(selected);
                for (int row = 0; row < list.count(); ++row) {
                    const QRect place = list.visualRect(list.model()->index(row, 0));
                    const double seen = contrastSeen(list.viewport(), place);
                    QVERIFY2(seen >= 4.5,
                             qPrintable(QString("row %1, %2 selected: %3").arg(row).arg(selected).arg(seen)));
                }
            }
        });
    }

    void linksAreReadable() {
        inThemes([] {
            const QColor link = QApplication::palette().color(QPalette::Link);
            for (const QColor& ground : {theme().window, theme().base, theme().alternateBase})
                QVERIFY2(contrast(link, ground) >= 4.5, qPrintable(link.name() + " on " + ground.name()));
            QLabel hint("ΗΗΗΗΗΗΗ");
            hint.setProperty("role", "accent");
            hint.resize(140, 40);
            QVERIFY(contrastSeen(&hint) >= 4.5);
        });
    }

    void styleSheetIsComplete() {
        QTest::failOnWarning(QRegularExpression("."));
        inThemes([] {
            QVERIFY(qApp->styleSheet().size() > 1000);
            QVERIFY2(!qApp->styleSheet().contains('@'), "a colour name was not replaced");
            static const QRegularExpression url("url\\((:[^)]*)\\)");
            for (auto it = url.globalMatch(qApp->styleSheet()); it.hasNext();) {
                const QString path = it.next().captured(1);
                QVERIFY2(QFile::exists(path), qPrintable(path));
            }
        });
    }

    void symbolsInAllModes() {
        inThemes([] {
            for (const QString& name : symbols) {
                const QIcon symbol = icon(name);
                QVERIFY2(!symbol.isNull(), qPrintable(name));
                QSet<QByteArray> looks;
                for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Active, QIcon::Disabled, QIcon::Selected}) {
                    const QPixmap picture = symbol.pixmap(QSize(24, 24), 2.0, mode);
                    QCOMPARE(picture.size(), QSize(48, 48));
                    QCOMPARE(picture.devicePixelRatio(), 2.0);
                    const QImage image = picture.toImage().convertToFormat(QImage::Format_ARGB32);
                    int inked = 0;
                    for (int y = 0; y < 48; ++y)
                        for (int x = 0; x < 48; ++x) inked += qAlpha(image.pixel(x, y)) > 60;
                    QVERIFY2(inked > 60 && inked < 48 * 48, qPrintable(name));
                    looks.insert(QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes()));
                }
                QCOMPARE(looks.size(), name == "dorvalist" ? 2 : 4);
            }
        });
    }

    void aKeptIconFollowsTheTheme() {
        applyTheme(*qApp, ThemeKind::Light);
        const QIcon kept = icon("save");
        const QImage light = kept.pixmap(24).toImage();
        applyTheme(*qApp, ThemeKind::Dark);
        QVERIFY(kept.pixmap(24).toImage() != light);
        QVERIFY(icon("no such symbol").isNull() && icon("../theme").isNull() && icon("").isNull());
    }

    void fontsHaveGreek() {
        for (const char* name :
             {"Tahoma", "MS Sans Serif", "Arial Greek", "Courier New Greek", "No Such Font 42", ""}) {
            const support::InCase in(name);
            const QFont made = font(name, 9.5, true);
            QCOMPARE(made.pointSizeF(), 9.5);
            QVERIFY(made.bold());
            QVERIFY2(QFontDatabase::hasFamily(made.family()), qPrintable(made.family()));
            const QFontMetrics metrics(made);
            for (const QChar c : QString::fromUtf8("ΑΩαωάέήίόύώϊΐϋΰςΆΈΉΊΌΎΏ€"))
                QVERIFY2(metrics.inFont(c), qPrintable(QString(c)));
            QCOMPARE(metrics.horizontalAdvance("ι") == metrics.horizontalAdvance("Ω"),
                     QString(name).startsWith("Courier"));
            QVERIFY(font(name, -3).pointSizeF() > 0);
        }
    }

    void toolkitSpeaksGreek() {
        applyTheme(*qApp, ThemeKind::Light);
        applyTheme(*qApp, ThemeKind::Light);
        TextBox box;
        std::unique_ptr<QMenu> menu(box.createStandardContextMenu());
        QDialogButtonBox buttons(QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Yes |
                                 QDialogButtonBox::No | QDialogButtonBox::Close | QDialogButtonBox::Save);
        QStringList texts;
        for (const QAction* action : menu->actions()) texts << action->text().section('\t', 0, 0);
        for (const QAbstractButton* button : buttons.buttons()) texts << button->text();
        for (const QString& text : texts) QVERIFY2(!text.contains(QRegularExpression("[A-Za-z]")), qPrintable(text));
    }

    void twips() {
        QCOMPARE(toPixels(11655), 777);
        QCOMPARE(toTwips(777), 11655);
    }
};

QTEST_MAIN(TestLook)
#include "test_look.moc"
