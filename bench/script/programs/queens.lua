local function place(row, n, columns, up, down)
  if row == n then return 1 end
  local found = 0
  for c = 0, n - 1 do
    if not (columns[c] or up[row + c] or down[n + row - c]) then
      columns[c], up[row + c], down[n + row - c] = true, true, true
      found = found + place(row + 1, n, columns, up, down)
      columns[c], up[row + c], down[n + row - c] = false, false, false
    end
  end
  return found
end
print(place(0, 11, {}, {}, {}))
