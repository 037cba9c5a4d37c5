import type { Component } from 'vue'

const layouts = new Map<string, Component>()

/** Draws windows of a class in a way of their own; the component's one property is `window`. */
export function registerLayout(className: string, layout: Component): void {
  layouts.set(className, layout)
}

export function layoutOf(className: string): Component | undefined {
  return layouts.get(className)
}

const rowIcons = new Map<string, string>()

/** Gives the rows of one component an icon where the session names none. */
export function registerRowIcon(className: string, component: string, icon: string): void {
  rowIcons.set(`${className}/${component}`, icon)
}

export function rowIconOf(className: string, component: string): string | undefined {
  return rowIcons.get(`${className}/${component}`)
}
