"""What a person does with the program, by real keys and clicks. Each act tells the ledger what it typed and took away."""

import time

from screen import Missing, click, click_at, find, gone, nodes, press, run, set_clipboard, shows, type_text, wait

ROW, BUTTON = "table cell", "push button"
LANGUAGES = ("swift", "python", "ruby")
THEMES = ("xcode", "atom-one-dark", "github", "monokai", "vs2015", "nord")
MOST_SNIPPETS, MOST_TAGS, MOST_FOLDERS, MOST_LINES = 10, 4, 3, 60
SAVED_AFTER = 30  # seconds in which a save that was asked for has to be in the store


class Fault(Exception):
    """The program did what it must not do."""


class Hands:
    def __init__(self, ledger, random):
        self.ledger, self.random = ledger, random

    # What an act needs.

    def observe(self, device):
        library = device.library()
        self.ledger.observe(device.name, library.words(), time.monotonic())
        return library

    def type_word(self, device):
        """Into the one field that is there for it."""
        word = self.ledger.new_word()
        type_text(word)
        self.ledger.type(word, device.name, time.monotonic())
        return word

    def owe(self, device, words):
        """What the editor shows is owed; where it shows nothing of it, the keys went elsewhere."""
        code = shows("Code", "text")
        text = wait("the editor shows nothing of it",
                    lambda: next((text for text in [code.text()] if words[-1] in text), None))
        for word in words:
            if word not in text:
                raise Fault(f"{word} was typed and is not on screen, {words[-1]} is")
            self.ledger.type(word, device.name, time.monotonic())

    def is_in_store(self, device, word):
        end = time.monotonic() + SAVED_AFTER
        while time.monotonic() < end:
            if word in self.observe(device).words():
                return
            time.sleep(0.2)
        raise Fault(f"{word} is not saved after {SAVED_AFTER} s")

    def save(self, device):
        """All that is on screen, and waits for it."""
        press("ctrl+s")
        end = time.monotonic() + SAVED_AFTER
        while any(where == device.name for where, _ in self.ledger.typed.values()):
            self.observe(device)
            if time.monotonic() > end:
                raise Fault(f"not saved after {SAVED_AFTER} s: {sorted(self.ledger.typed)}")
            time.sleep(0.2)
        return device.library()

    def open_some(self, device):
        """Shows a snippet's own code; gives its row in the store."""
        snippets = device.library().objects("Snippet")
        if not snippets:
            raise Missing("no snippet")
        snippet = self.random.choice(snippets)
        title, language = snippet["title"], snippet["language"]
        if not find(title, ROW):
            if not find(language, ROW):
                click("Languages", ROW)
            if not find(title, ROW):
                click(language, ROW)
        click(title, ROW)
        shows("Tags and Segments", "check box")
        if not find("Code", "radio button"):
            time.sleep(1)
        if not find("Code", "radio button"):  # the monkey has closed the panel with the chips
            click("Tags and Segments", "check box")
            shows("Code", "radio button")
        return snippet

    def removes(self, device, act, of, most):
        """Runs `act`, which may take away words of the object `of` only, and not more than `most`."""
        before = self.save(device)
        words = before.words_of_snippet(of)
        act()
        press("ctrl+s")
        time.sleep(3)
        after = device.library()
        taken = before.words() - after.words()
        allowed = taken & words
        self.ledger.remove(allowed)
        self.ledger.observe(device.name, after.words(), time.monotonic())
        if len(allowed) > most:
            raise Fault(f"{len(allowed)} words went where {most} could: {sorted(allowed)}")

    # The acts.

    def create_snippet(self, device):
        words = [self.ledger.new_word() for _ in range(3)]
        set_clipboard("".join(f"let {word} = \"pasted\"\n" for word in words))
        click("Add", BUTTON)
        shows("New Snippet")
        title = self.type_word(device)
        click("Import code from the clipboard")
        click("Language", BUTTON)
        shows("Search")
        type_text(self.random.choice(LANGUAGES))
        press("Return")
        click("Save", BUTTON)
        gone("New Snippet")
        for word in words:
            self.ledger.type(word, device.name, time.monotonic())
        self.is_in_store(device, title)

    def delete_snippet(self, device):
        snippet = self.open_some(device)

        def act():
            click("More", BUTTON)
            if not device.open_menu():
                time.sleep(1)
            press("Down", "Down", "Return")
            time.sleep(1)

        self.removes(device, act, snippet["_id"], 1000)

    def edit(self, device):
        self.open_some(device)
        self.type_lines(device)

    def type_lines(self, device):
        click("Code", "text")
        if self.random.random() < 0.3:
            press("ctrl+End", "Return")
        else:
            press("ctrl+Home", *["Down"] * self.random.randrange(8), "End", "Return")
        words = []
        for _ in range(self.random.randint(2, 6)):
            words.append(self.ledger.new_word())
            type_text(f"let {words[-1]} = {self.random.randrange(1000)}x")
            press("BackSpace", *(["Return"] if self.random.random() < 0.6 else ["Up"] * self.random.randrange(5) + ["End", "Return"]))
        self.owe(device, words)
        if self.random.random() < 0.7:
            self.save(device)

    def paste(self, device):
        self.open_some(device)
        words = [self.ledger.new_word() for _ in range(6)]
        set_clipboard("\n".join(f"print({word})" for word in words))
        click("Code", "text")
        press("ctrl+End", "Return", "ctrl+v")
        self.owe(device, words)
        self.save(device)

    def remove_lines(self, device):
        snippet = self.open_some(device)
        click("Code", "radio button")
        lines = device.library().code(snippet["_id"]).count("\n")
        count = 25 if lines > MOST_LINES else self.random.randint(1, 2)

        def act():
            click("Code", "text")
            press("ctrl+Home", *["Down"] * self.random.randrange(10), "Home", *["shift+Down"] * count, "Delete")

        self.removes(device, act, snippet["_id"], count)

    def undo(self, device):
        """Types something, and takes it back."""
        self.open_some(device)
        click("Code", "text")
        press("ctrl+End", "Return")
        type_text("nothing to keep")
        press("ctrl+z", "ctrl+z", "ctrl+y")

    def add_segment(self, device):
        self.open_some(device)
        click("Add Segment", BUTTON)
        time.sleep(1)
        click("Code", "text")
        word = self.ledger.new_word()
        type_text(f"part {word} of it")
        self.owe(device, [word])
        self.save(device)

    def edit_segment(self, device):
        self.open_some(device)
        chips = [node for node in nodes("radio button") if node.name.startswith("Segment ")]
        if not chips:
            return self.add_segment(device)
        click(self.random.choice(chips).name, "radio button")
        time.sleep(0.5)
        self.type_lines(device)

    def delete_segment(self, device):
        snippet = self.open_some(device)
        chips = [node for node in nodes("radio button") if node.name.startswith("Segment ")]
        if not chips:
            return
        chosen = self.random.choice(chips).name

        def act():
            click(chosen, "radio button", button="3")
            device.choose(0, of=2)
            time.sleep(0.5)

        self.removes(device, act, snippet["_id"], 1000)

    def tag(self, device):
        tags = device.library().objects("Tag")
        self.open_some(device)
        click("Tags", BUTTON)
        if len(tags) < MOST_TAGS:
            click("New Tag", ROW)
            shows("Tag Details")
            title = self.type_word(device)
            press("Return")
            gone("Tag Details")
            self.is_in_store(device, title)
        else:
            shows("New Tag", ROW)
            click(self.random.choice(tags)["title"], ROW)
        click("Close", BUTTON)
        gone("New Tag")

    def file(self, device):
        snippet = self.open_some(device)
        folders = device.library().objects("Folder")
        click(snippet["title"], ROW, button="3")
        device.choose(2, of=3)
        if len(folders) < MOST_FOLDERS:
            click("New Folder", ROW)
            shows("Folder Details")
            title = self.type_word(device)
            press("Return")
            gone("Folder Details")
            self.is_in_store(device, title)
        else:
            shows("New Folder", ROW)
            click(self.random.choice(folders)["title"], ROW)
        click("Close", BUTTON)
        gone("New Folder")

    def delete_group(self, device):
        """A tag or a folder; its snippets stay."""
        kind, action, most = self.random.choice([("Tag", "Delete Tag", MOST_TAGS), ("Folder", "Delete Folder", MOST_FOLDERS)])
        groups = device.library().objects(kind)
        if len(groups) < most:
            return
        title = self.random.choice(groups)["title"]
        if not find(title, ROW):
            click(kind + "s", ROW)
        click(title, ROW, button="3")
        device.choose(0, of=1)
        self.ledger.remove({title})
        click(action, BUTTON)
        gone(title, ROW)

    def look_around(self, device):
        """Goes from one to the next and finds something in it."""
        for _ in range(3):
            self.open_some(device)
        click("Code", "text")
        press("ctrl+f")
        type_text("let")
        press("Return", "Return", "Escape")
        if self.random.random() < 0.5:
            press("ctrl+plus", "ctrl+plus", "ctrl+0")

    def change_theme(self, device):
        shown = next((node.name for node in nodes(BUTTON) if node.name.startswith("Theme, ")), None)
        if not shown:
            self.open_some(device)
            shown = next(node.name for node in nodes(BUTTON) if node.name.startswith("Theme, "))
        click(shown, BUTTON)
        shows("Search")
        theme = self.random.choice(THEMES)
        type_text(theme)
        shows(theme, ROW)
        press("Return")
        click("Close", BUTTON)
        shows(f"Theme, {theme}", BUTTON)

    def resize(self, device):
        width, height = self.random.choice([(390, 844), (700, 800), (950, 700)])
        run("xdotool", "windowsize", device.window, str(width), str(height))
        time.sleep(1)
        device.is_clean = False

    def sort(self, device):
        click("Sort", BUTTON)
        device.choose(self.random.randrange(2), of=2)

    def settings(self, device):
        click("Settings", BUTTON)
        shows("Website")
        click("Data", BUTTON)
        shows("Legacy Data")
        press("alt+Left")
        shows("Website")
        click("Close", BUTTON)
        gone("Website")

    # The monkey.

    def monkey(self, device):
        """Clicks and keys without a plan. What it takes away cannot be told from what is lost, so it is counted apart."""
        before = self.save(device)
        for _ in range(12):
            if device.process.poll() is not None:
                return
            self.random.choice([self.click_something, self.click_something, self.strike, self.strike, self.babble])(device)
            time.sleep(0.2)
        device.recover()
        press("ctrl+s")
        time.sleep(3)
        taken = before.words() - device.library().words() - self.ledger.removed
        self.ledger.take(taken)
        self.observe(device)

    def click_something(self, device):
        shown = [node for node in nodes() if node.role in (BUTTON, ROW, "radio button", "text", "toggle button")]
        if shown:
            click_at(self.random.choice(shown), "3" if self.random.random() < 0.1 else "1")

    def strike(self, device):
        press(self.random.choice(["Return", "Escape", "Tab", "shift+Tab", "BackSpace", "Up", "Down", "Left", "shift+Right", "Home",
                                  "ctrl+End", "space", "Menu", "F6", "F3", "ctrl+z", "ctrl+s", "ctrl+f", "ctrl+n", "ctrl+v",
                                  "ctrl+plus", "ctrl+comma", "alt+Left", "Page_Down"]))

    def babble(self, device):
        type_text(self.random.choice(["monkey ", "x = 1 ", "(", "lorem ipsum "]))


ACTS = [(Hands.edit, 8), (Hands.remove_lines, 4), (Hands.paste, 2), (Hands.create_snippet, 3), (Hands.delete_snippet, 2),
        (Hands.add_segment, 2), (Hands.edit_segment, 3), (Hands.delete_segment, 1), (Hands.tag, 2), (Hands.file, 2),
        (Hands.delete_group, 1), (Hands.look_around, 3), (Hands.change_theme, 1), (Hands.undo, 1), (Hands.resize, 1),
        (Hands.sort, 1), (Hands.settings, 1), (Hands.monkey, 3)]


def choose_act(random, library):
    count = len(library.objects("Snippet"))
    if count < 3:
        return Hands.create_snippet
    acts = [(act, weight) for act, weight in ACTS
            if not (act is Hands.create_snippet and count >= MOST_SNIPPETS) and not (act is Hands.delete_snippet and count < 5)]
    if count > MOST_SNIPPETS:
        return Hands.delete_snippet
    return random.choices([act for act, _ in acts], [weight for _, weight in acts])[0]
