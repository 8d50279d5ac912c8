// Between the highlighter and its host: collects scopes as runs of the text, never as markup.
const quilletHighlight = (function () {
    "use strict";

    // Gathers pieces of text in order, each with the scopes around it, from outside in.
    class PieceEmitter {
        constructor() {
            this.lengths = [];
            this.paths = [];
            this.open = [];
        }

        addText(text) {
            if (text !== "") this.add(text.length, this.open.join(" "));
        }

        startScope(scope) {
            this.open.push(scope);
        }

        endScope() {
            this.open.pop();
        }

        openNode(scope) {
            this.startScope(scope);
        }

        closeNode() {
            this.endScope();
        }

        __addSublanguage(emitter, name) {
            const outer = name ? [...this.open, "language:" + name] : this.open;
            const prefix = outer.join(" ");
            for (let i = 0; i < emitter.lengths.length; i++) {
                const inner = emitter.paths[i];
                this.add(emitter.lengths[i], inner === "" ? prefix : prefix === "" ? inner : prefix + " " + inner);
            }
        }

        finalize() {
            this.open = [];
            return true;
        }

        toHTML() {
            return "";
        }

        add(length, path) {
            const last = this.lengths.length - 1;
            if (last >= 0 && this.paths[last] === path) {
                this.lengths[last] += length;
            } else {
                this.lengths.push(length);
                this.paths.push(path);
            }
        }
    }

    hljs.configure({ __emitter: PieceEmitter });

    // The start of the text, up to the last whole line where there is one.
    function leadingSample(code, size) {
        if (code.length <= size) return code;
        const cut = code.lastIndexOf("\n", size);
        return code.slice(0, cut > 0 ? cut : size);
    }

    // Answers {language, length, paths, runs}: runs are start, length and index into paths, one after another.
    return function (code, language, sampleSize) {
        if (language === null) language = hljs.highlightAuto(leadingSample(code, sampleSize)).language;
        if (!language || !hljs.getLanguage(language)) {
            return JSON.stringify({ language: "", length: code.length, paths: [], runs: [] });
        }
        const pieces = hljs.highlight(code, { language, ignoreIllegals: true })._emitter;
        const indexes = new Map();
        const runs = [];
        let at = 0;
        for (let i = 0; i < pieces.lengths.length; i++) {
            const path = pieces.paths[i];
            if (path !== "") {
                if (!indexes.has(path)) indexes.set(path, indexes.size);
                runs.push(at, pieces.lengths[i], indexes.get(path));
            }
            at += pieces.lengths[i];
        }
        return JSON.stringify({ language, length: at, paths: [...indexes.keys()], runs });
    };
})();
