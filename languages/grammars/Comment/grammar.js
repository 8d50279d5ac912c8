/// <reference types="tree-sitter-cli/dsl" />

// What people write into comments for others to find: "TODO", "FIXME(name):", addresses, numbers of issues. Everything
// else is text, which no comment can get wrong.

const tags = [
  'TODO', 'FIXME', 'XXX', 'HACK', 'BUG', 'NOTE', 'INFO', 'WARNING', 'WARN', 'IDEA', 'DEPRECATED', 'SAFETY', 'PERF',
  'OPTIMIZE', 'REVIEW', 'TEST', 'DOCS', 'NB',
];

module.exports = grammar({
  name: 'comment',

  extras: _ => [/\s/],

  word: $ => $._word,

  rules: {
    source: $ => repeat($._part),

    _part: $ => choice($.tag, $.assigned_tag, $.uri, $.issue, $.code, $._word, $._sign),

    tag: _ => choice(...tags),

    // With the one whom it is for: one token, as its parts mean nothing by themselves.
    assigned_tag: _ => token(seq(choice(...tags), /\([^()\r\n]*\)/)),

    uri: _ => token(prec(3, /(?:https?|ftp|file|ssh|git):\/\/[^\s<>"'`]*[^\s<>"'`.,;:!?()\[\]{}]/)),

    issue: _ => token(prec(2, choice(/#[0-9]+/, /[A-Za-z][\w.\-]*\/[A-Za-z][\w.\-]*#[0-9]+/))),

    code: _ => token(prec(1, /`[^`\r\n]+`/)),

    // Whole words, so that no tag begins in the middle of one.
    _word: _ => /[\p{L}\p{N}_]+([\-\/.'][\p{L}\p{N}_]+)*/,

    _sign: _ => token(prec(-1, /[^\s]/)),
  },
});
