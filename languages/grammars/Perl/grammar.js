// Perl 5.
//
// What a word or a sign means depends in Perl on whether an operand or an operator is due, and on what comes behind
// it. scanner.c looks at both and hands over tokens that say it already, so the rules below need no conflicts:
// `call_with_list` is the name of a function whose arguments follow without parentheses, `block_open` a brace that
// does not begin a hash.

const level = {
    list: 0, // as that of repetitions, so that the innermost list takes all that follows
    not: 2,
    assignment: 5,
    condition: 6,
    range: 7,
    or: 8,
    and: 9,
    bitOr: 10,
    bitAnd: 11,
    equality: 12,
    relation: 13,
    isa: 14,
    named: 15,
    shift: 16,
    sum: 17,
    product: 18,
    binding: 19,
    unary: 20,
    power: 21,
    step: 22,
    postfix: 23,
};

const separated = (by, rule) => seq(rule, repeat(seq(by, rule)));

const binary = ($, priority, operator) =>
    priority($._expression, field('operator', operator), $._expression);

const subHead = $ => [
    optional($.attributes),
    optional(seq(choice($.prototype, $.signature), optional($.attributes))),
];

module.exports = grammar({
    name: 'perl',

    // The order is that of `enum Token` in scanner.c.
    externals: $ => [
        $.scalar,
        $._closed_scalar,
        $.array,
        $.hash,
        $.function_variable,
        $.glob,
        $.array_length,
        $._scalar_sigil,
        $._array_sigil,
        $._hash_sigil,
        $._function_sigil,
        $._glob_sigil,
        $._length_sigil,
        $._placeholder,
        $._postfix_sigils,
        $._postfix_slice,
        $._number,
        $.version,
        $._quoted_word,
        $._key,
        $._label,
        $._call_with_parentheses,
        $._call_with_list,
        $._call_with_operand,
        $._call_alone,
        $._call_with_block,
        $._print,
        $._print_in_parentheses,
        $._sort,
        $._sort_in_parentheses,
        $._map,
        $._map_in_parentheses,
        $._new,
        $._return,
        $._return_alone,
        $._jump,
        $._jump_alone,
        $._try,
        $._catch,
        $._finally,
        $._format,
        $._handle,
        $._handle_scalar,
        $._sorter,
        $.bareword,
        $._file_test,
        $._file_test_alone,
        $.read_line,
        $.file_pattern,
        $._block_open,
        $._hash_open,
        $._end,
        $._repeat,
        $.prototype,
        $._raw_open,
        $._string_open,
        $._command_open,
        $._words_open,
        $._match_open,
        $._pattern_open,
        $._substitution_open,
        $._transliteration_open,
        $._quote_text,
        $.escape,
        $._listed_word,
        $._quote_middle,
        $._quote_middle_of_code,
        $._quote_close,
        $.modifiers,
        $._inner_more,
        $._inner_end,
        $.heredoc_marker,
        $._heredoc_open,
        $._heredoc_close,
        $.format_body,
        $.pod,
        $._data_marker,
        $.data_text,
        $._in_error,
    ],

    extras: $ => [/\s+/, $.comment, $.pod, $.heredoc],

    word: $ => $._name,

    inline: $ => [$._first_argument],

    rules: {
        source: $ => seq(repeat($._statement), optional($.data)),

        comment: _ => /#[^\n]*/,

        _name: _ => /(::)?[A-Za-z_\u{80}-\u{10FFFF}][A-Za-z0-9_\u{80}-\u{10FFFF}]*(::[A-Za-z0-9_\u{80}-\u{10FFFF}]+)*(::)?/u,

        data: $ => seq(alias($._data_marker, $.data_marker), repeat($.data_text)),

        // Statements

        _statement: $ => choice(
            ';',
            $.block_statement,
            $.labelled_statement,
            $.package_statement,
            $.use_statement,
            $.sub_definition,
            $.phase_block,
            $.if_statement,
            $.while_statement,
            $.for_statement,
            $.foreach_statement,
            $.given_statement,
            $.when_statement,
            $.default_statement,
            $.try_statement,
            $.defer_statement,
            $.format_definition,
            $.yada_statement,
            $.expression_statement,
        ),

        _ended: $ => choice(';', $._end),

        block: $ => seq(alias($._block_open, '{'), repeat($._statement), '}'),

        block_statement: $ => seq($.block, optional($.continue_block)),

        continue_block: $ => seq('continue', $.block),

        labelled_statement: $ => seq($.label, $._statement),

        label: $ => seq(alias($._label, $.name), ':'),

        package_statement: $ => seq(
            'package',
            field('name', alias($._name, $.package_name)),
            optional(field('version', $._version)),
            choice($._ended, $.block),
        ),

        _version: $ => prec(1, choice(alias($._number, $.number), $.version)),

        use_statement: $ => seq(
            choice('use', 'no'),
            choice(
                $._version,
                seq(
                    field('module', alias($._name, $.package_name)),
                    optional(field('version', $._version)),
                    optional($._full_expression),
                ),
            ),
            $._ended,
        ),

        sub_definition: $ => seq(
            optional(choice('my', 'our', 'state')),
            'sub',
            field('name', alias($._name, $.function_name)),
            ...subHead($),
            choice(';', field('body', $.block)),
        ),

        attributes: $ => seq(':', repeat(seq($.attribute, optional(':')))),

        attribute: $ => seq(
            alias($._name, $.attribute_name),
            optional(alias(token.immediate(/\([^)]*\)/), $.attribute_value)),
        ),

        signature: $ => seq('(', optional(seq(separated(',', $._parameter), optional(','))), ')'),

        // Any expression, so that a signature that is being typed is no error in all that follows.
        _parameter: $ => choice(
            $._expression,
            seq(
                alias($._placeholder, $.placeholder),
                optional(seq(choice('=', '//=', '||='), optional($._expression))),
            ),
        ),

        phase_block: $ => seq(
            choice('BEGIN', 'UNITCHECK', 'CHECK', 'INIT', 'END', 'AUTOLOAD', 'DESTROY'),
            $.block,
        ),

        _condition: $ => seq('(', optional(field('condition', $._full_expression)), ')'),

        if_statement: $ => seq(
            choice('if', 'unless'), $._condition, $.block,
            repeat($.elsif_clause),
            optional($.else_clause),
        ),

        elsif_clause: $ => seq('elsif', $._condition, $.block),

        else_clause: $ => seq('else', $.block),

        while_statement: $ => seq(
            choice('while', 'until'), $._condition, $.block, optional($.continue_block),
        ),

        for_statement: $ => seq(
            choice('for', 'foreach'),
            '(',
            optional(field('start', $._full_expression)), ';',
            optional(field('condition', $._full_expression)), ';',
            optional(field('step', $._full_expression)),
            ')',
            $.block,
        ),

        foreach_statement: $ => seq(
            choice('for', 'foreach'),
            optional(field('variable', $._loop_variable)),
            '(', optional(field('list', $._full_expression)), ')',
            $.block,
            optional($.continue_block),
        ),

        _loop_variable: $ => choice(
            $.scalar,
            $.declaration,
            seq('\\', $._loop_variable),
            $.hash,
            $.array,
        ),

        given_statement: $ => seq('given', $._condition, $.block),

        when_statement: $ => seq('when', $._condition, $.block),

        default_statement: $ => seq('default', $.block),

        defer_statement: $ => seq('defer', $.block),

        try_statement: $ => prec.right(seq(
            alias($._try, 'try'), $.block,
            alias($._catch, 'catch'), '(', $.scalar, ')', $.block,
            optional($.finally_clause),
        )),

        finally_clause: $ => seq(alias($._finally, 'finally'), $.block),

        format_definition: $ => seq(
            alias($._format, 'format'),
            optional(field('name', alias($._name, $.format_name))),
            '=',
            $.format_body,
        ),

        yada_statement: $ => seq('...', $._ended),

        expression_statement: $ => seq($._full_expression, optional($.statement_modifier), $._ended),

        statement_modifier: $ => seq(
            choice('if', 'unless', 'while', 'until', 'for', 'foreach', 'when'),
            $._full_expression,
        ),

        // Expressions

        _full_expression: $ => choice($._sequence, $.logical_expression),

        logical_expression: $ => choice(
            prec.left(0, seq($._full_expression, field('operator', choice('or', 'xor')), $._full_expression)),
            prec.left(1, seq($._full_expression, field('operator', 'and'), $._full_expression)),
        ),

        _sequence: $ => prec.right(level.list, seq(
            $._expression,
            repeat(seq(choice(',', '=>'), optional($._expression))),
        )),

        _expression: $ => choice(
            $._primary,
            $.declaration,
            $.localization,
            $.assignment,
            $.conditional,
            $.binary_expression,
            $.unary_expression,
            $.step_expression,
            $.file_test,
            $._open_call,
            $.return_expression,
            $.jump_expression,
            $._literal,
        ),

        assignment: $ => prec.right(level.assignment, seq(
            field('left', $._expression),
            field('operator', choice(
                '=', '**=', '+=', '-=', '.=', '*=', '/=', '%=', 'x=', '&=', '|=', '^=', '&.=', '|.=', '^.=',
                '<<=', '>>=', '&&=', '||=', '//=',
            )),
            field('right', $._expression),
        )),

        conditional: $ => prec.right(level.condition, seq(
            field('condition', $._expression), '?', field('then', $._expression), ':', field('else', $._expression),
        )),

        binary_expression: $ => {
            const left = n => (...parts) => prec.left(n, seq(...parts));
            const right = n => (...parts) => prec.right(n, seq(...parts));
            return choice(
                binary($, right(level.power), '**'),
                binary($, left(level.binding), choice('=~', '!~')),
                binary($, left(level.product), choice('*', '/', '%', alias($._repeat, 'x'))),
                binary($, left(level.sum), choice('+', '-', '.')),
                binary($, left(level.shift), choice('<<', '>>')),
                binary($, left(level.isa), 'isa'),
                binary($, left(level.relation), choice('<', '>', '<=', '>=', 'lt', 'gt', 'le', 'ge')),
                binary($, left(level.equality), choice('==', '!=', '<=>', 'eq', 'ne', 'cmp', '~~')),
                binary($, left(level.bitAnd), choice('&', '&.')),
                binary($, left(level.bitOr), choice('|', '^', '|.', '^.')),
                binary($, left(level.and), '&&'),
                binary($, left(level.or), choice('||', '//')),
                binary($, left(level.range), choice('..', '...')),
            );
        },

        unary_expression: $ => choice(
            prec.right(level.unary, seq(field('operator', choice('!', '~', '~.', '\\', '-', '+')), $._expression)),
            prec.right(level.not, seq(field('operator', 'not'), $._expression)),
        ),

        step_expression: $ => choice(
            prec(level.step, seq(choice('++', '--'), $._primary)),
            prec(level.step, seq($._primary, choice('++', '--'))),
        ),

        file_test: $ => choice(
            prec.right(level.named, seq(alias($._file_test, $.file_test_operator), $._expression)),
            alias($._file_test_alone, $.file_test_operator),
        ),

        declaration: $ => prec.right(seq(
            choice('my', 'our', 'state'),
            optional(field('type', alias($._name, $.package_name))),
            choice(
                $.scalar, $.array, $.hash,
                alias($._declared_list, $.list),
            ),
            repeat(prec(1, seq(':', alias($._name, $.attribute_name)))),
        )),

        _declared_list: $ => seq('(', optional(seq($._declared, repeat(seq(',', optional($._declared))))), ')'),

        _declared: $ => choice($.scalar, $.array, $.hash, alias($._call_alone, $.function), seq('\\', $._declared)),

        localization: $ => prec.right(level.unary, seq('local', $._expression)),

        return_expression: $ => choice(
            prec.right(level.list, seq(alias($._return, 'return'), $._sequence)),
            alias($._return_alone, 'return'),
        ),

        jump_expression: $ => choice(
            prec.right(level.named, seq(alias($._jump, $.jump), $._expression)),
            alias($._jump_alone, $.jump),
        ),

        // Operands behind which something may come that belongs to them.

        _primary: $ => choice(
            $._subscriptable,
            $._sliceable,
            $.function_variable,
            $.array_length,
            alias($._length_dereference, $.array_length),
            $.list,
            $.list_slice,
            $.slice,
            $.postfix_dereference,
            $.method_call,
            alias($._closed_call, $.call),
            $.anonymous_array,
            $.anonymous_hash,
            $.anonymous_sub,
            $.do_block,
            $.eval_block,
            $.word_list,
            $.bareword,
            $.string,
            $.raw_string,
        ),

        _subscriptable: $ => choice(
            $.scalar,
            $.glob,
            alias($._scalar_dereference, $.dereference),
            alias($._glob_dereference, $.dereference),
            $._element,
        ),

        _element: $ => choice($.array_element, $.hash_element, $.code_call),

        _sliceable: $ => choice(
            $.array,
            $.hash,
            alias($._array_dereference, $.dereference),
            alias($._hash_dereference, $.dereference),
        ),

        _scalar_dereference: $ => seq(alias($._scalar_sigil, '$'), $._referenced),
        _array_dereference: $ => seq(alias($._array_sigil, '@'), $._referenced),
        _hash_dereference: $ => seq(alias($._hash_sigil, '%'), $._referenced),
        _function_dereference: $ => seq(alias($._function_sigil, '&'), $._referenced),
        _glob_dereference: $ => seq(alias($._glob_sigil, '*'), $._referenced),
        _length_dereference: $ => seq(alias($._length_sigil, '$#'), $._referenced),

        _referenced: $ => choice($.scalar, alias($._scalar_dereference, $.dereference), $.block),

        array_element: $ => prec(level.postfix, seq(
            choice($._subscriptable, seq($._primary, '->')),
            $._index,
        )),

        hash_element: $ => prec(level.postfix, seq(
            choice($._subscriptable, seq($._primary, '->')),
            $._key_index,
        )),

        _index: $ => seq('[', $._full_expression, ']'),

        _key_index: $ => seq('{', choice(alias($._key, $.key), $._full_expression), '}'),

        slice: $ => prec(level.postfix, choice(
            seq($._sliceable, choice($._index, $._key_index)),
            seq($._primary, '->', alias($._postfix_slice, $.sigil), choice($._index, $._key_index)),
        )),

        list_slice: $ => prec(level.postfix, seq(
            choice($.list, $.word_list, $.list_slice), '[', optional($._full_expression), ']',
        )),

        postfix_dereference: $ => prec(level.postfix, seq($._primary, '->', alias($._postfix_sigils, $.sigil))),

        list: $ => seq('(', optional($._full_expression), ')'),

        anonymous_array: $ => seq('[', optional($._full_expression), ']'),

        anonymous_hash: $ => seq(alias($._hash_open, '{'), optional($._full_expression), '}'),

        anonymous_sub: $ => seq('sub', ...subHead($), field('body', $.block)),

        do_block: $ => seq('do', $.block),

        eval_block: $ => seq('eval', $.block),

        // Calls

        arguments: $ => seq('(', optional($._full_expression), ')'),

        method_call: $ => prec.right(level.postfix, seq(
            field('invocant', $._primary),
            '->',
            field('method', choice(
                alias($._name, $.method),
                $.scalar,
                alias($._scalar_dereference, $.dereference),
            )),
            optional($.arguments),
        )),

        code_call: $ => prec(level.postfix, choice(
            seq($._primary, '->', $.arguments),
            seq($._element, $.arguments),
        )),

        _closed_call: $ => choice(
            alias($._call_alone, $.function),
            seq(alias($._call_with_parentheses, $.function), $.arguments),
            prec.right(level.postfix, seq($.function_variable, $.arguments)),
            prec.right(level.postfix, seq(alias($._function_dereference, $.dereference), optional($.arguments))),
            seq(alias($._print_in_parentheses, $.function), alias($._print_arguments, $.arguments)),
            seq(alias($._sort_in_parentheses, $.function), alias($._sort_arguments, $.arguments)),
            seq(alias($._map_in_parentheses, $.function), alias($._map_arguments, $.arguments)),
        ),

        _open_call: $ => choice(alias($._call, $.call), $.object_creation),

        _call: $ => prec.right(level.list, choice(
            seq(
                alias($._call_with_list, $.function),
                optional(field('invocant', alias($._handle_scalar, $.scalar))),
                $._sequence,
            ),
            prec.right(level.named, seq(alias($._call_with_operand, $.function), $._expression)),
            seq(alias(choice($._call_with_block, $._try), $.function), $.block, optional(','), optional($._sequence)),
            seq(alias($._print, $.function), $._print_list),
            seq(alias($._sort, $.function), $._sort_list),
            seq(alias($._map, $.function), $._map_list),
        )),

        object_creation: $ => prec.right(level.named, seq(
            alias($._new, $.function),
            field('class', choice($.bareword, $.scalar)),
            optional($.arguments),
        )),

        _print_arguments: $ => seq('(', optional($._first_print_list), ')'),
        _sort_arguments: $ => seq('(', optional($._first_sort_list), ')'),
        _map_arguments: $ => seq('(', optional($._first_map_list), ')'),

        // In parentheses a low operator may follow.
        _first_print_list: $ => choice($._full_expression, $._handle_list),
        _first_sort_list: $ => choice($._full_expression, $._sorter_list),
        _first_map_list: $ => choice($._full_expression, $._block_list),

        _print_list: $ => choice($._sequence, $._handle_list),
        _sort_list: $ => choice($._sequence, $._sorter_list),
        _map_list: $ => choice($._sequence, $._block_list),

        _handle_list: $ => prec.right(level.list, seq(
            field('handle', choice(
                alias($._handle, $.handle),
                alias($._handle_scalar, $.scalar),
                $.block,
            )),
            optional($._sequence),
        )),

        _sorter_list: $ => prec.right(level.list, seq($._first_argument, optional(','), optional($._sequence))),

        _first_argument: $ => choice(
            alias($._sorter, $.function),
            alias($._handle_scalar, $.scalar),
            $.block,
        ),

        _block_list: $ => prec.right(level.list, seq(
            choice(alias($._handle_scalar, $.scalar), $.block), optional(','), optional($._sequence),
        )),

        // Literals

        _literal: $ => choice(
            alias($._number, $.number),
            $.version,
            alias($._quoted_word, $.key),
            $.command,
            $.match,
            $.pattern,
            $.substitution,
            $.transliteration,
            $.read_line,
            $.file_pattern,
            $.heredoc_marker,
        ),

        raw_string: $ => seq($._raw_open, repeat($._raw_part), $._quote_close),

        _raw_part: $ => choice($._quote_text, $.escape),

        string: $ => seq($._string_open, repeat($._part), $._quote_close),

        command: $ => seq($._command_open, repeat($._part), $._quote_close),

        word_list: $ => seq($._words_open, repeat(alias($._listed_word, $.listed_word)), $._quote_close),

        match: $ => seq($._match_open, optional($.regex), $._quote_close, optional($.modifiers)),

        pattern: $ => seq($._pattern_open, optional($.regex), $._quote_close, optional($.modifiers)),

        regex: $ => repeat1($._part),

        substitution: $ => seq(
            $._substitution_open,
            optional($.regex),
            choice(
                seq($._quote_middle, optional($.replacement)),
                seq($._quote_middle_of_code, optional(alias($._replacement_code, $.replacement_code))),
            ),
            $._quote_close,
            optional($.modifiers),
        ),

        replacement: $ => repeat1($._part),

        _replacement_code: $ => repeat1($._statement),

        transliteration: $ => seq(
            $._transliteration_open,
            optional(alias($._characters, $.characters)),
            $._quote_middle,
            optional(alias($._characters, $.characters)),
            $._quote_close,
            optional($.modifiers),
        ),

        _characters: $ => repeat1($._raw_part),

        heredoc: $ => seq($._heredoc_open, repeat($._part), $._heredoc_close),

        // What stands in a string

        _part: $ => choice($._quote_text, $.escape, $.interpolation),

        interpolation: $ => seq($._inner, optional($._inner_end)),

        _inner: $ => choice(
            $._inner_subscriptable,
            $._inner_sliceable,
            alias($._closed_scalar, $.scalar), // "${name}", which has no subscripts
            $.array_length,
            alias($._length_dereference, $.array_length),
            alias($._inner_slice, $.slice),
            alias($._inner_postfix_dereference, $.postfix_dereference),
        ),

        _inner_subscriptable: $ => choice(
            $.scalar,
            alias($._scalar_dereference, $.dereference),
            alias($._inner_array_element, $.array_element),
            alias($._inner_hash_element, $.hash_element),
        ),

        _inner_sliceable: $ => choice($.array, alias($._array_dereference, $.dereference)),

        _inner_array_element: $ => seq(
            $._inner_subscriptable, $._inner_more, optional('->'), '[', $._full_expression, ']',
        ),

        _inner_hash_element: $ => seq($._inner_subscriptable, $._inner_more, optional('->'), $._key_index),

        _inner_slice: $ => seq($._inner_sliceable, $._inner_more, choice($._index, $._key_index)),

        _inner_postfix_dereference: $ => seq(
            $._inner_subscriptable, $._inner_more, '->', alias($._postfix_sigils, $.sigil),
        ),
    },
});
