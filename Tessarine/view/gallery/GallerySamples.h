#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace tessarine {

// A text, and which parts of it are what; each is known by its first occurrence.
struct GallerySample {
    std::string_view language; // none for plain text
    std::u16string_view text;
    std::u16string_view selected{}; // what is empty is not shown
    std::u16string_view marked{};
    std::vector<std::u16string_view> highlighted{};
    std::int64_t guideColumn = 60;
    bool showsSpaces = true;
};

inline const std::vector<GallerySample> gallerySamples{
    {.language = "c",
     .text = uR"(#include <stdio.h>
#define LIMIT 8

/* What a list is made of. */
struct node { const char *name; struct node *next; };

static int count(struct node *first) {
	int found = 0; // so far
	for (struct node *at = first; at; at = at->next)
		found += 1;
	if (found < LIMIT) printf("%d of %d in a list of at most %d\n", found, LIMIT, LIMIT * 2 + 1);
	return found;
}
)",
     .selected = u"= 0; // so far\n\tfor (struct node *at",
     .marked = u"is made",
     .highlighted = {u"LIMIT", u"printf(\"%d of %d in a list of at most %d\\n\"", u"name"}},
    {.language = "html",
     .text = uR"(<!-- A page with all three -->
<!doctype html>
<html lang="en">
<head>
  <style>
    .card { color: #ff8800; margin: 12px; }
  </style>
  <script>
    const greet = (name) => `Hello ${name}`;
    function show() { return this.title + greet("you"); } // 2 * 21
    document.querySelector("p").addEventListener("click", show, 42);
  </script>
</head>
<body class="wide"><p id="first">Text</p></body>
</html>
)",
     .selected = u"title",
     .marked = u"margin",
     .highlighted = {u"greet", u"class=\"wide\"><p id=\"first\">Text</p></body>\n</html"}},
    {.language = "markdown",
     .text = uR"(# A heading

Some *words* with a `span` and a **strong** one, in a paragraph that is longer than a row is.

```c
static int twice(int x) { return x * 2; } // inside
```

```javascript
const answer = new Map([["six", 42]]);
```

- [a link](https://example.org) in a list
)",
     .selected = u"```c\nstatic int twice(int x) { return x * 2; } // inside\n```",
     .marked = u"strong",
     .highlighted = {u"paragraph that is longer", u"answer"}},
    {.language = "",
     .text = u"English, \u0645\u0631\u062D\u0628\u0627 \u0628\u0627\u0644\u0639\u0627\u0644\u0645 and back\n"
             u"\u0645\u0631\u062D\u0628\u0627 \u0628\u0627\u0644\u0639\u0627\u0644\u0645\u060C abc 123\n"
             u"\u05E9\u05DC\u05D5\u05DD (hello) \u05E2\u05D5\u05DC\u05DD\n"
             u"\U0001F600 \U0001F469\u200D\U0001F469\u200D\U0001F467 \U0001F44D\U0001F3FD "
             u"\U0001F1E9\U0001F1EA\u2764\uFE0F\n"
             u"e\u0301 o\u0308\u0304 \u4F60\u597D \u65E5\u672C\u8A9E \uD55C\uAE00 "
             u"\u0928\u092E\u0938\u094D\u0924\u0947\n"
             u"a\ttab\tand\u00A0more\t.\n"
             u"soft\u2028break\n"
             u"\n"
             u"averyverylongwordwithoutanyplacewhereonewouldliketobreakitacrosstworowsbutitisnecessary\n",
     .selected = u"\u65E5\u672C\u8A9E",
     .marked = u"hello",
     .highlighted = {u"\u0628\u0627\u0644\u0639\u0627\u0644\u0645", u"\U0001F44D\U0001F3FD",
                     u"liketobreakitacrosstworows", u"tab\tand"}}};

} // namespace tessarine
