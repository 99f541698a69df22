// Shows the tracks of files in a list with buttons, to be reordered by dragging: track_list FILE...
// With "--picture PICTURE.png" in front the window is painted into a file instead.

#include <KRGeoLocation/KRGPXTrackListModel.h>
#include <KRGeoLocation/KRGPXTrackMultiFunctionDelegate.h>
#include <KRGeoLocation/KRGPXTrackSelection.h>
#include <KRGeoLocation/KRTrackSelectionFactory.h>

#include <QApplication>
#include <QImageWriter>
#include <QListView>
#include <QUrl>

#include <cstdio>
#include <utility>

static int complain(const QString &problem)
{
    std::fprintf(stderr, "%s\n", qUtf8Printable(problem));
    return 1;
}

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    QStringList fileNames = QApplication::arguments().mid(1);
    QString picture;
    if (fileNames.value(0) == QLatin1String("--picture")) {
        picture = fileNames.value(1);
        fileNames = fileNames.mid(2);
    }
    KRGPXTrackSelection selection;
    for (const QString &fileName : std::as_const(fileNames)) {
        const KRGPXConfiguredTrackList tracks =
            KRTrackSelectionFactory::instance()->createConfiguredTrackList(QUrl::fromLocalFile(fileName));
        if (!tracks.isValid())
            return complain(fileName + QLatin1String(": no tracks")); // why, stands in the log
        selection.addTracks(tracks);
    }

    KRGPXTrackListModel model;
    model.setSelection(selection);
    QListView view;
    view.setModel(&model);
    view.setEditTriggers(QListView::NoEditTriggers);
    view.setDragDropMode(QListView::InternalMove);
    KRGPXTrackMultiFunctionDelegate delegate(&view, DeleteTrackEditOption | ZoomTrackEditOption);
    view.setItemDelegate(&delegate);

    // A map would zoom to the track; here its area is printed.
    QObject::connect(&delegate, &KRGPXTrackMultiFunctionDelegate::zoomToItem, &view, [&model](int row) {
        std::printf("%s\n", qUtf8Printable(model.trackAt(row).boundingBox().toString(false)));
    });
    QObject::connect(&delegate, &KRGPXTrackMultiFunctionDelegate::deleteItem, &view,
                     [&model](int row) { model.remove(model.index(row, 0)); });
    QObject::connect(&model, &KRGPXTrackListModel::pleaseSelectTrack, &view,
                     [&](int row) { view.setCurrentIndex(model.index(row, 0)); });

    view.resize(360, 200);
    view.show();
    if (picture.isEmpty())
        return QApplication::exec();
    view.grab(); // the rows get their buttons when they are painted first
    QApplication::processEvents();
    QImageWriter writer(picture);
    const bool isWritten = writer.write(view.grab().toImage());
    return isWritten ? 0 : complain(picture + QLatin1String(": ") + writer.errorString());
}
