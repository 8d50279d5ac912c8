/// <reference types="tree-sitter-cli/dsl" />

// JSON5: JSON with comments, names without quotes, strings in either quotes, commas at the end, and the numbers of
// JavaScript.

const newline = /\r\n|[\n\r\u2028\u2029]/;

// A string between quotes of one kind.
function quoted(quote, content) {
  return $ => seq(quote, repeat(choice(alias(content, $.string_content), $.escape_sequence)), quote);
}

function list(open, item, close) {
  return seq(open, optional(seq(item, repeat(seq(',', item)), optional(','))), close);
}

module.exports = grammar({
  name: 'json5',

  extras: $ => [/[\s\uFEFF\u00A0\u2028\u2029]/, $.comment],

  supertypes: $ => [$._value],

  word: $ => $.identifier,

  rules: {
    // Several values in a row, too, so that a text in the making keeps its colours.
    document: $ => repeat($._value),

    _value: $ => choice($.object, $.array, $.string, $.number, $.true, $.false, $.null),

    object: $ => list('{', $.pair, '}'),
    pair: $ => seq(field('key', choice($.string, $._name)), ':', field('value', $._value)),

    // What has a meaning as a value may be a name as well.
    _name: $ => choice(
      $.identifier,
      alias(choice('true', 'false', 'null', 'Infinity', 'NaN'), $.identifier)),

    array: $ => list('[', $._value, ']'),

    string: $ => choice(quoted('"', token.immediate(prec(1, /[^"\\\r\n]+/)))($),
                        quoted("'", token.immediate(prec(1, /[^'\\\r\n]+/)))($)),
    escape_sequence: _ => token.immediate(choice(
      seq('\\', newline),
      /\\x[0-9A-Fa-f]{2}/,
      /\\u[0-9A-Fa-f]{4}/,
      /\\[^xu\r\n\u2028\u2029]/)),

    number: $ => choice(
      $._literal,
      seq(choice('+', '-'), choice($._literal, 'Infinity', 'NaN')),
      'Infinity',
      'NaN'),
    _literal: _ => token(choice(
      /0[xX][0-9A-Fa-f]+/,
      /(\d+\.?\d*|\.\d+)([eE][+-]?\d+)?/)),

    true: _ => 'true',
    false: _ => 'false',
    null: _ => 'null',

    identifier: _ => /(?:[\p{L}\p{Nl}$_]|\\u[0-9A-Fa-f]{4})(?:[\p{L}\p{Nl}\p{Mn}\p{Mc}\p{Nd}\p{Pc}$\u200C\u200D]|\\u[0-9A-Fa-f]{4})*/,

    comment: _ => token(choice(
      seq('//', /[^\r\n\u2028\u2029]*/),
      seq('/*', /[^*]*\*+([^/*][^*]*\*+)*/, '/'))),
  },
});
