#pragma once

#include "Tessarine/theme/Theme.h"
#include "examples/editor/files/FileWatch.h"
#include "examples/editor/files/LoadFile.h"
#include "examples/editor/files/SaveFile.h"
#include "examples/editor/window/EditorServices.h"
#include "examples/editor/window/PageContents.h"

#include <QtCore/QObject>

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace tessarine::editor {

struct OpenedDocument;

// The file of one page: where it is, in which form, and whether it has what the page shows. It reads, writes
// and watches; what is to be asked of a person it leaves to others. Main thread, which no file holds up.
class PageFile : public QObject {
    Q_OBJECT

public:
    using SaveResult = std::expected<void, SaveError>;
    using SaveCompletion = std::function<void(const SaveResult&)>;

    struct Destination {
        QString path;
        FileFormat format;
        SaveRequest::Overwrite overwrite = SaveRequest::Overwrite::known;
    };

    // They are asked for when they are saved or have changed. Services are borrowed.
    PageFile(EditorServices& services, std::function<PageContents()> contents);

    // Empty for a page that was never saved.
    const QString& path() const { return m_path; }

    // The name alone.
    QString name() const;

    const FileFormat& format() const { return m_format; }

    bool isLoading() const { return m_isLoading; }

    bool isModified() const { return m_isModified; }

    // What is there cannot be written back as it was.
    bool isMalformed() const { return m_isMalformed; }

    enum class Unsaved { keep, discard };

    // Reads the file; one that there is none of is made by the first save.
    void open(const QString& path, const std::shared_ptr<const Theme>& theme);

    // Reads it anew. What is modified by the time that it was read stays, unless it is to be discarded.
    void reload(const std::shared_ptr<const Theme>& theme, Unsaved unsaved);

    // The page has the text from now on, whatever the file on the disk has become.
    void keepText();

    Destination destination() const { return {m_path, m_format}; }

    // A later save waits for the one before.
    void save(const Destination& destination, const SaveCompletion& completion);

    void textDidChange();

    // For when the system may have told nothing.
    void checkDisk() { m_watch.check(); }

Q_SIGNALS:
    // To be shown; told before anything else of the file is.
    void opened(const OpenedDocument& document);
    void openFailed(const LoadError& error);

    // Path, format or one of the flags.
    void stateChanged();

    // A name that no text was read from: of a new file, or one to save under.
    void renamed();

    // By another program; told once each time. A text that is not modified is to be read anew.
    void changedOnDisk();
    void removedFromDisk();

private:
    using ReadResult = std::expected<OpenedDocument, LoadError>;

    void startReading(const QString& path, const std::shared_ptr<const Theme>& theme,
                      std::function<void(const ReadResult&)> completion);
    void finishOpening(const QString& path, const ReadResult& read);
    void finishReloading(const ReadResult& read, Unsaved unsaved);
    void take(const QString& path, const OpenedDocument& document);
    void takeNewFile(const QString& path);
    void startSave(const Destination& destination, const SaveCompletion& completion);
    void finishSave(const SaveRequest& request, std::int64_t state,
                    const std::expected<FileIdentity, SaveError>& saved, const SaveCompletion& completion);
    void lookAtDisk();
    void setModified(bool isModified);

    EditorServices& m_services;
    const std::function<PageContents()> m_contents;

    QString m_path;
    FileFormat m_format;
    std::optional<FileIdentity> m_identity;
    std::optional<std::int64_t> m_savedState; // nothing where no file has the text any more
    bool m_isModified = false;
    bool m_isMalformed = false;

    bool m_isLoading = false;
    bool m_isSaving = false;
    std::vector<std::pair<Destination, SaveCompletion>> m_waitingSaves;
    FileWatch m_watch;
};

} // namespace tessarine::editor
