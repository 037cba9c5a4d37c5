import type { Component } from 'vue'

const layouts = new Map<string, Component>()

/** Draws windows of a class in a way of their own; the component's one property is `window`. */
export function registerLayout(className: string, layout: Component): void {
  layouts.set(className, layout)
}

export function layoutOf(className: string): Component | undefined {
  return layouts.get(className)
}
