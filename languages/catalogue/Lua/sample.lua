#!/usr/bin/env lua
-- A garden whose plants grow by the day.

local json = require("json")
local format, insert = string.format, table.insert
local MAX_HEIGHT <const> = 0x1F
local log <close> = io.open("garden.log", "a")

--- A plant that grows.
--- @param name string
local Plant = {}
Plant.__index = Plant

local defaults = {
  height = 1.5e-1,
  kinds = { "tree", 'herb', [3] = "shrub", ["tall grass"] = true },
  grow = function(self, days)
    return self.height * days
  end,
  nested = { a = { b = nil } },
}

function Plant.new(name, options, ...)
  options = options or {}
  local extra = select("#", ...)
  local self = setmetatable({}, { __index = Plant, __tostring = function(p) return p.name end })
  self.name, self.height = name, options.height or defaults.height
  self.labels = { ... }
  return self, extra
end

function Plant:water(litres)
  if not litres then
    error("no water for " .. self.name, 2)
  elseif litres >= 10 and self.height ~= MAX_HEIGHT then
    self.height = self.height + litres / 2 // 1 % 3 - 1
  else
    self.height = 2 ^ 3
  end
  return self
end

Plant.prune = function(self, by)
  self.height = math.max(0, self.height - by)
end

local grow
grow = function(plants)
  for i = 1, #plants, 2 do
    plants[i]:water(i)
  end
  for index, plant in ipairs(plants) do
    if plant.height == 0 then goto continue end
    print(index, format("%s\t%5.2f\n", plant.name, plant.height), "\x41\u{20AC}\065\z
      and on")
    ::continue::
  end
end

--[[ Nothing below
     is ever called. ]]
local function search(list, wanted)
  local low, high = 1, #list
  while low <= high do
    local middle = (low + high) // 2
    local found = list[middle]
    if found == wanted then
      return middle
    elseif found < wanted then
      low = middle + 1
    else
      high = middle - 1
    end
  end
  return nil
end

local text = [[
  Long strings keep \n as it is,
  and lines.
]]

local nested = [==[ may hold ]] too ]==]
local bits = ~0 & 0xFF | 1 << 3 >> 2 ~ 7

repeat
  local line = log and log:read("l")
  if line == nil then break end
  local key, value = line:match("^(%w+)%s*=%s*(.+)$")
  insert(defaults.kinds, { key = key; value = tonumber(value) })
until false

local worker = coroutine.wrap(function(...)
  local count = 0
  while true do
    count = count + 1
    coroutine.yield(count, ...)
  end
end)

do
  local ok, problem = pcall(search, { 1, 2, 3 }, 2)
  if not ok then
    io.stderr:write("failed: ", tostring(problem))
  end
  _G.result = worker(true) > 1 and json.encode { garden = defaults, text } or [[none]] --[==[ why not ]==]
  print "done"; print(nested, bits, MAX_HEIGHT, grow, _VERSION)
end

return Plant
