#include <KRCore/KRConcurrent.h>
#include <KRCore/KREnumWrapper.h>

#include "KRTest.h"

#include <atomic>

namespace {

enum LayerEnum : int {
    NoLayer = 0,
    RoadLayer = 1,
    RiverLayer = 2,
    HiddenLayer = 4, // has no key
    CityLayer = 8,
};

class Layer : public KREnumWrapper<LayerEnum>
{
public:
    using KREnumWrapper::KREnumWrapper;
    explicit Layer(const QString &keys) { setValue(enumToStringTable().decodeCSV(keys)); }

    void fillTable(KREnumToStringTable<LayerEnum> *table) const override
    {
        ++fillings;
        table->add(CityLayer, QStringLiteral("city"));
        table->add(RoadLayer, QStringLiteral("road"));
        table->add(RiverLayer, QStringLiteral("river"));
        table->add(NoLayer, QStringLiteral("none"));
    }

    static std::atomic_int fillings;
};

std::atomic_int Layer::fillings = 0;

} // namespace

class tst_KREnumWrapper : public QObject
{
    Q_OBJECT

private slots:
    // Runs first, while the table is still empty.
    void fillsItsTableOnceForAllThreads()
    {
        const QList<QString> texts = QVector<QString>(64, QStringLiteral("river")).toList();
        QCOMPARE(KRConcurrent::blockingMapped(texts, [](const QString &text) { return Layer(text).keys(); }), texts);
        QCOMPARE(Layer::fillings.load(), 1);
    }

    void decode()
    {
        const KRTestTable<KRText, LayerEnum> table{
            {"several keys are joined", "river,road", LayerEnum(3)},
            {"unknown keys count as 0", "lake,road", RoadLayer},
            {"case matters", "Road", NoLayer},
            {"blanks are not trimmed", "river, road", RiverLayer},
            {"numbers are no keys", "1", NoLayer},
        };
        table.forEach([](const QString &text, LayerEnum expected) { QCOMPARE(Layer(text).value(), expected); });
    }

    void bits()
    {
        Layer layer;
        QVERIFY(!layer.isValid());
        layer.expandTo(RoadLayer);
        layer.expandTo(Layer(CityLayer));
        QVERIFY(layer.isValid());
        QCOMPARE(layer.value(), LayerEnum(9));
        layer.exclude(LayerEnum(RoadLayer | RiverLayer));
        layer |= HiddenLayer;
        QCOMPARE(layer.value(), LayerEnum(12));
        QCOMPARE(layer.reducedTo(LayerEnum(6)), HiddenLayer);
        layer &= HiddenLayer;
        QCOMPARE(layer.value(), HiddenLayer);
        QCOMPARE(Layer(RoadLayer) | Layer(RiverLayer), LayerEnum(3));
        QCOMPARE(Layer(LayerEnum(3)) & RiverLayer, RiverLayer);
    }

    void orderIsThatOfSignedNumbers()
    {
        for (const int a : {-1, 1, 2}) {
            for (const int b : {-1, 1, 2}) {
                const Layer layer(static_cast<LayerEnum>(a));
                const Layer other(static_cast<LayerEnum>(b));
                QCOMPARE(layer < other, a < b);
                QCOMPARE(layer > other.value(), a > b);
                QCOMPARE(layer <= other, a <= b);
                QCOMPARE(layer == other.value(), a == b);
                QCOMPARE(layer != other, a != b);
            }
        }
    }
};

template class KRTestRegistration<tst_KREnumWrapper>;

#include "tst_KREnumWrapper.moc"
