#include "examples/editor/window/PageFile.h"

#include "examples/editor/window/OpenDocument.h"

#include <QtCore/QFileInfo>

#include <utility>

namespace tessarine::editor {

PageFile::PageFile(EditorServices& services, std::function<PageContents()> contents)
    : m_services(services)
    , m_contents(std::move(contents))
    , m_savedState(m_contents().state) {
    connect(&m_watch, &FileWatch::changed, this, &PageFile::lookAtDisk);
}

QString PageFile::name() const {
    return m_path.isEmpty() ? tr("Untitled") : QFileInfo(m_path).fileName();
}

void PageFile::open(const QString& path, const std::shared_ptr<const Theme>& theme) {
    startReading(path, theme, [this, path](const ReadResult& read) { finishOpening(path, read); });
}

void PageFile::reload(const std::shared_ptr<const Theme>& theme, Unsaved unsaved) {
    startReading(m_path, theme, [this, unsaved](const ReadResult& read) { finishReloading(read, unsaved); });
}

void PageFile::startReading(const QString& path, const std::shared_ptr<const Theme>& theme,
                            std::function<void(const ReadResult&)> completion) {
    if (m_isLoading) return;
    m_isLoading = true;
    Q_EMIT stateChanged();
    const OpenRequest request{path, theme, m_services.measurer, m_services.mainExecutor};
    m_services.fileWork.start(
        this, [request] { return openDocument(request); },
        [this, completion = std::move(completion)](const ReadResult& read) {
            m_isLoading = false;
            completion(read);
            Q_EMIT stateChanged();
        });
}

void PageFile::finishOpening(const QString& path, const ReadResult& read) {
    if (read)
        take(path, *read);
    else if (read.error().kind == LoadError::Kind::notFound)
        takeNewFile(path);
    else
        Q_EMIT openFailed(read.error());
}

void PageFile::finishReloading(const ReadResult& read, Unsaved unsaved) {
    if (m_isModified && unsaved == Unsaved::keep)
        Q_EMIT changedOnDisk();
    else if (read)
        take(m_path, *read);
    else
        Q_EMIT openFailed(read.error());
}

void PageFile::take(const QString& path, const OpenedDocument& document) {
    m_path = path;
    m_format = document.format;
    m_identity = document.identity;
    m_isMalformed = document.isMalformed;
    Q_EMIT opened(document);
    m_savedState = m_contents().state;
    textDidChange();
    m_watch.watch(path, m_identity);
    m_watch.check(); // it may have changed since it was read
}

void PageFile::takeNewFile(const QString& path) {
    m_path = path;
    m_watch.watch(path, std::nullopt);
    Q_EMIT renamed();
}

void PageFile::keepText() {
    m_identity = fileIdentity(m_path);
    m_savedState.reset();
    m_watch.watch(m_path, m_identity);
    textDidChange();
}

void PageFile::save(const Destination& destination, const SaveCompletion& completion) {
    if (m_isSaving)
        m_waitingSaves.emplace_back(destination, completion);
    else
        startSave(destination, completion);
}

void PageFile::startSave(const Destination& destination, const SaveCompletion& completion) {
    m_isSaving = true;
    const auto [text, state] = m_contents();
    const SaveRequest request{destination.path, text, destination.format,
                              destination.path == m_path ? m_identity : std::nullopt, destination.overwrite};
    m_services.fileWork.start(
        this, [request] { return saveFile(request); },
        [this, request, state, completion](const auto& saved) {
            finishSave(request, state, saved, completion);
        });
}

void PageFile::finishSave(const SaveRequest& request, std::int64_t state,
                          const std::expected<FileIdentity, SaveError>& saved,
                          const SaveCompletion& completion) {
    m_isSaving = false;
    if (saved) {
        const bool isRenamed = std::exchange(m_path, request.path) != request.path;
        m_format = request.format;
        m_identity = *saved;
        m_savedState = state;
        m_watch.watch(m_path, m_identity);
        textDidChange();
        if (isRenamed) Q_EMIT renamed();
        Q_EMIT stateChanged();
    }
    if (!m_waitingSaves.empty()) {
        const auto [destination, waiting] = m_waitingSaves.front();
        m_waitingSaves.erase(m_waitingSaves.begin());
        startSave(destination, waiting);
    }
    m_watch.check(); // what it told during the save did not count
    completion(saved ? SaveResult() : std::unexpected(saved.error()));
}

void PageFile::lookAtDisk() {
    if (m_isSaving || m_isLoading) return;
    const auto present = fileIdentity(m_path);
    if (present == m_identity) return;
    if (present) {
        Q_EMIT changedOnDisk();
        return;
    }
    m_identity.reset();
    m_savedState.reset();
    textDidChange();
    Q_EMIT removedFromDisk();
}

void PageFile::textDidChange() {
    setModified(m_savedState != m_contents().state);
}

void PageFile::setModified(bool isModified) {
    if (std::exchange(m_isModified, isModified) != isModified) Q_EMIT stateChanged();
}

} // namespace tessarine::editor
