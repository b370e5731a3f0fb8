#pragma once
// The edit session: the one open system, its working copy, its pictures and its undo history,
// and the only way to change a system. Every edit is a named command (see SystemEdits.h,
// PlanetEdits.h and MessageEdits.h); each writes the working copy at once, becomes one step of
// the history and is reported to every listener, so every open window shows the same truth.
// The editor's windows and the command-line tool call the same commands.
//
// Lifecycle: open() makes or takes the working copy and loads the system; save() writes the
// record, the pictures and the working copy over the saved descriptor and starts a fresh working
// copy; commit() and discard() leave the system with or without its changes. Opening another
// system ends the history.

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "session/ChangeNotice.h"
#include "session/History.h"
#include "session/PictureCodec.h"
#include "session/PictureSet.h"
#include "store/ProfileStore.h"
#include "store/SystemStore.h"

namespace orr {

class EditSession {
  public:
    explicit EditSession(GameFolder folder = {});
    EditSession(const EditSession&) = delete;
    EditSession& operator=(const EditSession&) = delete;

    const GameFolder& folder() const { return store_.folder(); }
    bool InitTables() { return store_.InitTables(); }
    const Tables& tables() const { return store_.tables(); }
    // The codec that reads and writes the picture files; without one they are left alone.
    void setPictureCodec(PictureCodec* codec) { codec_ = codec; }

    // --- the open system (reads; every change goes through a command)
    bool isOpen() const { return store_.IsEditing(); }
    const SystemRecord& record() const { return store_.record(); }
    const std::string& name() const { return store_.record().Name; }
    const SystemStore& store() const { return store_; }
    const PictureSet& pictures() const { return pictures_; }
    // The descriptor holds a system block. Without one, changes of the planets and the star
    // could not be saved, so the commands that make them refuse (requireSystemBlock).
    bool hasSystemBlock() const { return hasBlock_; }
    bool requireSystemBlock();
    // The working copy differs from the saved descriptor, or pictures are not saved yet.
    bool isModified() const;
    // The pictures (and the animations to remove) differ from the saved ones: Save writes them.
    bool picturesDiffer() const;
    // Starts a new check round of the files (see ProfileStore): windows call it before they
    // read the system for a refresh.
    void recheck() const { store_.recheck(); }

    const std::string& lastError() const { return lastError_; }
    // A warning about the last successful lifecycle step (a leftover file that could not be
    // deleted); empty when there is none.
    const std::string& lastWarning() const { return lastWarning_; }
    bool fail(std::string message);

    // --- lifecycle; none of these is undoable
    // Opens a saved system in its working copy. askUseBackup is asked when a working copy is
    // already there (true keeps it). *loaded says what the descriptor held.
    bool open(const std::string& name, const std::function<bool()>& askUseBackup,
              LoadResult* loaded = nullptr);
    bool save();
    // Save As: the system continues under `newName` (its working copy renamed, its saved
    // pictures carried over) and is saved there; the old system keeps its files.
    bool saveAs(const std::string& newName);
    // Leaves the open system with its changes saved, or without them.
    bool commit();
    bool discard();
    // Forgets the open system without touching its files (nothing is open afterwards; a working
    // copy stays as the backup the next opening offers).
    void close();

    // --- history
    bool canUndo() const { return history_.canUndo(); }
    bool canRedo() const { return history_.canRedo(); }
    std::string undoName() const;  // "Move Planet 3"; empty when there is nothing to undo
    std::string redoName() const;
    bool undo();
    bool redo();
    const History& history() const { return history_; }

    // --- change notices
    using Listener = std::function<void(const ChangeNotice&)>;
    int subscribe(Listener listener);
    void unsubscribe(int id);
    // Expires when the session is destroyed: a listener that may outlive the session (a window
    // whose parent owns it) unsubscribes only while this has not expired.
    std::weak_ptr<const void> lifetime() const { return lifetime_; }

    // One command: its writes go to disk together, and only when all of them worked does it
    // become a step of the history and a notice. A command that is not committed, or whose
    // writes fail, leaves the working copy, the record and the pictures as they were.
    class Command {
      public:
        ~Command();
        Command(const Command&) = delete;
        Command& operator=(const Command&) = delete;

        SystemStore& store() { return session_.store_; }
        SystemRecord& record() { return session_.store_.record(); }
        PictureSet& pictures() { return session_.pictures_; }
        // Adds to what the command reports as changed.
        void notice(const ChangeNotice& more) { notice_ |= more; }
        // Ends the command: `ok` false (a step failed; the store's lastError() says why) or a
        // failed write undoes everything. Returns whether the change was made.
        bool commit(bool ok = true);

      private:
        friend class EditSession;
        Command(EditSession& session, std::string name, ChangeNotice notice, std::string mergeKey);
        void rollBack();

        EditSession& session_;
        std::string name_;
        ChangeNotice notice_;
        std::string mergeKey_;
        SystemRecord recordBefore_;
        PictureSet picturesBefore_;
        std::shared_ptr<const std::string> bytesBefore_;
        ProfileStore::WriteBatch batch_;
        bool done_ = false;
    };
    // A command named `name` (what Undo and Redo show). Commands with the same non-empty
    // mergeKey that follow each other become one step (a drag, a run of typing).
    Command command(std::string name, ChangeNotice notice, std::string mergeKey = {});

  private:
    SystemStore store_;
    PictureSet pictures_;
    PictureSet savedPictures_;  // as the picture files hold them
    PictureCodec* codec_ = nullptr;
    bool hasBlock_ = false;
    History history_;
    std::map<int, Listener> listeners_;
    std::shared_ptr<const void> lifetime_ = std::make_shared<int>(0);
    int nextListener_ = 1;
    std::string lastError_;
    std::string lastWarning_;

    fs::path workingCopy() const;
    void notify(const ChangeNotice& notice);
    // Reads the picture files; says what could not be read.
    std::string loadPictures();
    bool savePictures();
    // The steps of Save before the commit: the block and the pictures.
    bool saveSteps();
    // Moves the history one step; `forwards` redoes.
    bool travel(bool forwards);
    // Back at the saved state: the working copy gets the saved descriptor's time again, so the
    // system counts as unmodified, when its bytes are the saved ones.
    void matchSavedTime();
    void removeStaleTemporaries();
    bool storeFailed(const std::string& fallback);
};

}  // namespace orr
