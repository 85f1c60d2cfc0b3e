-- SPDX-FileCopyrightText: 2026 The Velkor developers
-- SPDX-License-Identifier: GPL-3.0-or-later
-- In the sources chapters link to each other as Markdown files, so that they can be read where they
-- lie; the pages link to pages. The English description of the file lies outside the manual's own folder.
function Link(link)
  link.target = link.target
    :gsub("^%.%./%.%./file%-format%.md", "file-format.html")
    :gsub("%.md$", ".html")
    :gsub("%.md#", ".html#")
  return link
end

-- A range of numbers stays on one line.
function Str(string)
  string.text = string.text:gsub("(%d)–(%d)", "%1\u{2060}–\u{2060}%2")
  return string
end

-- Columns as wide as what stands in them. A table may be wider than a narrow window; it scrolls by
-- itself then.
function Table(element)
  for i, column in ipairs(element.colspecs) do
    element.colspecs[i] = { column[1], nil }
  end
  return pandoc.Div({ element }, { class = "table" })
end
